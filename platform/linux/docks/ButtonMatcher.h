// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Matches a panel's buttons to windows by their labels. Pure functions.
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
    AccessibleRef list; ///< its parent
    QString name;
    QRect place;              ///< pixels, relative to the corner of the panel's window
    std::size_t siblings = 0; ///< number of children of the list, including itself and hidden ones
};

/// A window that may have a button.
struct ButtonWindow {
    xcb_window_t id = XCB_NONE;
    QString title;
    std::int32_t application = 0;
    QStringList applicationNames; ///< possible labels of a button for all its windows
    bool isIconic = false;
};

using ButtonWindows = std::map<AccessibleRef, std::vector<xcb_window_t>>;

/// Finds the buttons of one panel that stand for windows, and their windows. Only the buttons of
/// one list are used, the list with the most matching labels, because a menu or a clock may have
/// the same label as a window. Matches by title first (several windows with the same title get one
/// button each, in the order of the buttons along the panel). Then keeps the pairs in `before` in
/// which neither the button nor the window has a new partner, because a new title appears on a
/// window earlier than on its button. Finally a button with the name of an application takes the
/// application's windows that have none. `windows` is in the order of appearance.
ButtonWindows matchButtons(std::vector<PanelButton> buttons,
                           const std::vector<ButtonWindow>& windows, const ButtonWindows& before);

} // namespace lumbrix::platform
