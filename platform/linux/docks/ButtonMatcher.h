// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which windows a panel's buttons stand for, by what is written on them. Pure.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QStringList>

#include <xcb/xcb.h>

#include <compare>
#include <cstdint>
#include <map>
#include <vector>

namespace lumbrix::platform
{

/// One element of the accessibility tree. It stays the same while the element lives.
struct AccessibleRef {
    QString bus; ///< unique name of the program
    QString path;

    std::strong_ordering operator<=>(const AccessibleRef& other) const
    {
        const int order = bus.compare(other.bus);
        return (order != 0 ? order : path.compare(other.path)) <=> 0;
    }
    bool operator==(const AccessibleRef&) const = default;
};

/// A button that is shown on a panel.
struct PanelButton {
    AccessibleRef ref;
    AccessibleRef list; ///< what it is a child of
    QString name;
    QRect place;              ///< pixels, counted from the corner of the panel's window
    std::size_t siblings = 0; ///< of the list, with itself and what is not shown
};

/// A window that may have a button.
struct ButtonWindow {
    xcb_window_t id = XCB_NONE;
    QString title;
    std::int32_t application = 0;
    QStringList applicationNames; ///< what a button for all its windows may be called
    bool isIconic = false;
};

using ButtonWindows = std::map<AccessibleRef, std::vector<xcb_window_t>>;

/// The buttons of one panel that stand for windows, and for which. They are all in one list: the
/// one with the most names that fit, as a menu or a clock may be called like a window. By title
/// first (of several windows of one title each gets one, in the order of the buttons along the
/// panel), then as `before`, when neither the button nor the window got another partner: a title is
/// on a window earlier than on its button. At last a button with the name of an application takes
/// those of its windows that have none. `windows` in the order they appeared.
ButtonWindows matchButtons(std::vector<PanelButton> buttons,
                           const std::vector<ButtonWindow>& windows, const ButtonWindows& before);

} // namespace lumbrix::platform
