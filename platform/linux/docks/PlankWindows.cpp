// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankWindows.h"

#include <algorithm>
#include <tuple>

#include <xcb/shape.h>

#include "platform/linux/x11/Connection.h"

namespace lumbrix::platform
{

namespace
{

constexpr int maximumScale = 16;

bool holds(const QRect& bounds, const std::vector<QPoint>& points, int scale)
{
    return !points.empty() && std::ranges::all_of(points, [&](QPoint point) {
        return bounds.contains(point * scale);
    });
}

// Along the edge only: a hidden dock touches only the edge.
bool isTouchedAt(const PlankWindow& window, const std::vector<QPoint>& points, DockEdge edge)
{
    const QRect& touched = window.touched;
    return !touched.isEmpty() && !points.empty() && std::ranges::all_of(points, [&](QPoint point) {
        const QPoint pixel = point * window.scale;
        return isHorizontal(edge)
                   ? pixel.x() >= touched.x() && pixel.x() < touched.x() + touched.width()
                   : pixel.y() >= touched.y() && pixel.y() < touched.y() + touched.height();
    });
}

// A process id found on both sides is a match. Ids that are found on one side only may still be the
// same process, seen from inside and outside a container.
bool areStrangers(std::int32_t dock, std::int32_t window,
                  const std::vector<PlankWithoutWindow>& docks,
                  const std::vector<PlankWindow>& windows)
{
    return dock != window &&
           (std::ranges::find(docks, window, &PlankWithoutWindow::pid) != docks.end() ||
            std::ranges::find(windows, dock, &PlankWindow::pid) != windows.end());
}

int fit(const PlankWithoutWindow& dock, const PlankWindow& window)
{
    const QRect& bounds = window.window.bounds;
    const bool isWide = bounds.width() >= bounds.height();
    return (holds(bounds, dock.points, window.scale) ? 4 : 0) +
           (isWide == isHorizontal(dock.edge) ? 2 : 0) +
           (isTouchedAt(window, dock.points, dock.edge) ? 1 : 0);
}

} // namespace

int plankScaleOf(const x11::TrackedWindow& window)
{
    return window.resizeStep >= 1 && window.resizeStep <= maximumScale ? window.resizeStep : 1;
}

std::vector<QRect> readInputAreas(xcb_connection_t* connection,
                                  const std::vector<xcb_window_t>& windows)
{
    std::vector<xcb_shape_get_rectangles_cookie_t> cookies;
    cookies.reserve(windows.size());
    for (const xcb_window_t window : windows)
        cookies.push_back(xcb_shape_get_rectangles(connection, window, XCB_SHAPE_SK_INPUT));
    std::vector<QRect> areas;
    for (const auto& cookie : cookies) {
        const x11::Reply<xcb_shape_get_rectangles_reply_t> reply(
            xcb_shape_get_rectangles_reply(connection, cookie, nullptr));
        QRect& area = areas.emplace_back();
        const int count = reply ? xcb_shape_get_rectangles_rectangles_length(reply.get()) : 0;
        for (int i = 0; i < count; ++i) {
            const xcb_rectangle_t& rect = xcb_shape_get_rectangles_rectangles(reply.get())[i];
            area |= QRect(rect.x, rect.y, rect.width, rect.height);
        }
    }
    return areas;
}

std::vector<std::optional<std::size_t>>
windowsOfPlanks(const std::vector<PlankWithoutWindow>& docks,
                const std::vector<PlankWindow>& windows)
{
    struct Pair {
        int fit = 0;
        std::size_t dock = 0;
        std::size_t window = 0;
    };
    std::vector<Pair> pairs;
    for (std::size_t d = 0; d < docks.size(); ++d) {
        for (std::size_t w = 0; w < windows.size(); ++w)
            if (!areStrangers(docks[d].pid, windows[w].pid, docks, windows))
                pairs.push_back({fit(docks[d], windows[w]), d, w});
    }
    // Equally good matches are assigned by age: Plank creates the windows in the order of its
    // docks.
    std::ranges::sort(pairs, {}, [&](const Pair& pair) {
        return std::tuple(-pair.fit, pair.dock, windows[pair.window].window.id);
    });
    std::vector<std::optional<std::size_t>> result(docks.size());
    for (const Pair& pair : pairs)
        if (!result[pair.dock] && std::ranges::find(result, pair.window) == result.end())
            result[pair.dock] = pair.window;
    return result;
}

} // namespace lumbrix::platform
