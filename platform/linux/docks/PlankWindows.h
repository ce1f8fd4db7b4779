// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Finds the window of each Plank dock, which Plank does not report, and reads further data from a
// dock's window. Geometry is in root pixels.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include "platform/linux/docks/DockItem.h"
#include "platform/linux/docks/PlankItems.h"
#include "platform/linux/x11/TrackedWindow.h"

namespace lumbrix::platform
{

/// The width and height in screen pixels of one of Plank's own pixels. A scaled Plank still reports
/// points and sizes in unscaled pixels, but its window has this number as resize increment. 1 if
/// the window has no or an invalid increment.
int plankScaleOf(const x11::TrackedWindow& window);

/// Of each of these windows the part that the pointer touches, counted from the window's corner:
/// the bar with the items, or a strip as long as that while the dock has slid away. Empty when
/// unknown. Main thread; may be null.
using PlankInputAreas = std::function<std::vector<QRect>(const std::vector<xcb_window_t>&)>;
/// The same from the server, which must have the shape extension. One round trip for all; any
/// thread.
std::vector<QRect> readInputAreas(xcb_connection_t* connection,
                                  const std::vector<xcb_window_t>& windows);

struct PlankWindow {
    DockWindow window;
    std::int32_t pid = 0; ///< 0 = unknown
    int scale = 1;
    QRect touched; ///< the input area; empty = unknown
};

/// The data of a dock that needs a window.
struct PlankWithoutWindow {
    std::int32_t pid = 0; ///< 0 = unknown
    DockEdge edge = DockEdge::Bottom;
    std::vector<QPoint> points; ///< beside its items, in Plank's own pixels
};

/// For each dock the index of its window; null if there is none. No window is used twice. Pure.
std::vector<std::optional<std::size_t>>
windowsOfPlanks(const std::vector<PlankWithoutWindow>& docks,
                const std::vector<PlankWindow>& windows);

} // namespace lumbrix::platform
