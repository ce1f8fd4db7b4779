// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Items of a task bar, derived from where it says that it shows each window. Pure.
#pragma once

#include <QtCore/QMargins>

#include <vector>

#include "platform/linux/docks/DockItem.h"

namespace lumbrix::platform
{

/// A window and its place on a dock's window, counted from that window's corner: a panel that
/// slides or hides keeps its buttons where they are on it.
struct PlacedWindow {
    xcb_window_t window = XCB_NONE;
    QRect place;
    bool isIconic = false;
    /// Only the place along the panel is to be believed: it was written while the panel was hidden.
    bool isOffPanel = false;

    bool operator==(const PlacedWindow&) const = default;
};

/// Smaller places are transient: panels write them during animations and for hidden buttons.
inline constexpr int minimalIconSide = 8;
/// Also of a panel: hidden ones leave a thin window at the edge to be touched.
bool isIconPlace(const QRect& rect);

/// The dock window that holds the icon, or, where none does, the one that the icon misses only
/// across its breadth (it was hidden when the icon was placed); −1 = none.
int dockOfIcon(const QRect& icon, const std::vector<DockWindow>& docks);

/// The place counted from the dock's corner. An icon off the dock gets the dock's whole breadth and
/// sets `isOffPanel`.
QRect placeOnDock(const QRect& icon, const QRect& dock, bool& isOffPanel);

/// Windows that share one place form one item. Items go on being themselves (`previous`) while one
/// of their windows stays. Sorted along the edge.
std::vector<DockItem> deriveItems(const std::vector<PlacedWindow>& windows, const QRect& dock,
                                  DockEdge edge, const std::vector<DockItem>& previous);

/// Where a dock stands: at the edge where it keeps space free (`strut`), else at the one nearest to
/// it; where several are as near, its shape tells. Any dock has an edge, a floating one too.
DockEdge edgeOfDock(const QRect& dock, const QRect& screen, const QMargins& strut);

} // namespace lumbrix::platform
