// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Items of a task bar, derived from the position that it reports for each window. Pure functions.
#pragma once

#include <QtCore/QMargins>

#include <vector>

#include "platform/linux/docks/DockItem.h"

namespace lumbrix::platform
{

/// A window and its button's rectangle, relative to the corner of the dock's window: the buttons of
/// a panel that slides or hides move with it.
struct PlacedWindow {
    xcb_window_t window = XCB_NONE;
    QRect place;
    bool isIconic = false;
    /// Only the position along the panel is reliable: it was written while the panel was hidden.
    bool isOffPanel = false;

    bool operator==(const PlacedWindow&) const = default;
};

/// Smaller rectangles are temporary: panels write them during animations and for hidden buttons.
inline constexpr int minimumIconSide = 8;
/// Also of a panel: hidden ones leave a thin window at the edge to be touched.
bool isIconPlace(const QRect& rect);

/// The dock window that contains the icon, otherwise the one that the icon misses only across its
/// thickness (it was hidden when the icon was placed); −1 = none.
int dockOfIcon(const QRect& icon, const std::vector<DockWindow>& docks);

/// The rectangle relative to the dock's corner. An icon off the dock gets the dock's whole
/// thickness and sets `isOffPanel`.
QRect placeOnDock(const QRect& icon, const QRect& dock, bool& isOffPanel);

/// Windows with the same rectangle form one item. An item keeps its identity from `previous` while
/// one of its windows stays. Sorted along the edge.
std::vector<DockItem> deriveItems(const std::vector<PlacedWindow>& windows, const QRect& dock,
                                  DockEdge edge, const std::vector<DockItem>& previous);

/// The edge of a dock: the one at which it reserves space (`strut`), otherwise the nearest one; if
/// several are equally near, its shape decides. Every dock has an edge, even a floating one.
DockEdge edgeOfDock(const QRect& dock, const QRect& screen, const QMargins& strut);

} // namespace lumbrix::platform
