// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The state of one dock or task bar: its position and its items. Geometry is in root pixels.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/DockEdge.h"

namespace lumbrix::platform
{

/// "left", "right", "top" or "bottom".
QString edgeName(DockEdge edge);
/// Null for any other name.
std::optional<DockEdge> edgeNamed(const QString& name);

/// Identity of an item while the program runs; 0 = none.
using DockItemId = std::uint64_t;
/// Never returns the same number twice. Any thread.
DockItemId newDockItemId();

struct DockItem {
    DockItemId id = 0;
    /// The application that it stands for; empty if the dock reports the windows instead.
    QString desktopFile;
    /// The windows that it stands for, if the dock reports them.
    std::vector<xcb_window_t> windows;
    bool isMinimizedWindow = false; ///< stands for one iconic window, not for an application
    bool areChosen = false;         ///< show exactly these windows, of any application
    QRect rect;                     ///< unmagnified, extended to the dock's edges across it
    QRect magnified;                ///< while the pointer is on it
};

struct DockWindow {
    xcb_window_t id = XCB_NONE;
    xcb_window_t frame = XCB_NONE;
    QRect bounds;
};

/// Immutable; replaced as a whole.
struct DockState {
    std::int32_t pid = 0; ///< 0 = the dock does not run
    DockEdge edge = DockEdge::Bottom;
    bool magnifies = false;
    bool hides = false;
    bool isHidden = false; ///< currently hidden
    QString settingsPath;  ///< identifies this dock among several of its program; may be empty
    std::vector<DockWindow> windows;
    std::vector<DockItem> items; ///< from left to right, from top to bottom

    const DockItem* item(DockItemId id) const;
    /// The item whose `rect` contains the point; null if there is none.
    const DockItem* itemAt(QPoint point) const;
    /// The bounding rectangle of the items; empty if there are none.
    QRect extent() const;
};
using DockStatePtr = std::shared_ptr<const DockState>;

/// Squared distance of a point from a rectangle, 0 inside.
std::int64_t squaredDistance(QPoint point, const QRect& rect);

} // namespace lumbrix::platform
