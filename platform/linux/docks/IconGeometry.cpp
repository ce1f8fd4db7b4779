// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/IconGeometry.h"

#include <algorithm>
#include <tuple>

namespace lumbrix::platform
{

namespace
{

// A hidden panel is off the screen by about its thickness.
constexpr int maximumMiss = 200;

bool isWide(const QRect& dock) { return dock.width() >= dock.height(); }

bool isSamePlace(const PlacedWindow& a, const PlacedWindow& b, DockEdge edge)
{
    if (a.place == b.place)
        return true;
    const bool isSameAlong =
        isHorizontal(edge) ? a.place.x() == b.place.x() && a.place.width() == b.place.width()
                           : a.place.y() == b.place.y() && a.place.height() == b.place.height();
    return isSameAlong && (a.isOffPanel || b.isOffPanel);
}

bool overlapsAlong(const QRect& icon, const QRect& dock)
{
    const int middle = isWide(dock) ? icon.center().x() : icon.center().y();
    const int start = isWide(dock) ? dock.x() : dock.y();
    return middle >= start && middle < start + std::max(dock.width(), dock.height());
}

// Extended to both edges of the dock: a pointer at the very edge of the screen is on the icon, and
// previews beside the icon must not cover the dock.
QRect acrossDock(const QRect& icon, const QRect& dock, DockEdge edge)
{
    if (isHorizontal(edge))
        return {icon.x(), dock.y(), icon.width(), dock.height()};
    return {dock.x(), icon.y(), dock.width(), icon.height()};
}

DockItemId reuseId(const std::vector<xcb_window_t>& windows, std::vector<DockItem>& previous)
{
    for (DockItem& item : previous) {
        const bool shares = std::ranges::any_of(item.windows, [&](xcb_window_t window) {
            return std::ranges::find(windows, window) != windows.end();
        });
        if (shares && item.id != 0)
            return std::exchange(item.id, 0);
    }
    return newDockItemId();
}

} // namespace

bool isIconPlace(const QRect& rect)
{
    return rect.width() >= minimumIconSide && rect.height() >= minimumIconSide;
}

int dockOfIcon(const QRect& icon, const std::vector<DockWindow>& docks)
{
    int best = -1;
    std::int64_t bestDistance = std::int64_t{maximumMiss} * maximumMiss;
    for (std::size_t i = 0; i < docks.size(); ++i) {
        const QRect& dock = docks[i].bounds;
        if (!isIconPlace(dock))
            continue;
        const std::int64_t distance = squaredDistance(icon.center(), dock);
        if ((distance == 0 || overlapsAlong(icon, dock)) && distance < bestDistance) {
            best = static_cast<int>(i);
            bestDistance = distance;
        }
    }
    return best;
}

QRect placeOnDock(const QRect& icon, const QRect& dock, bool& isOffPanel)
{
    isOffPanel = !dock.contains(icon.center());
    const QRect place = icon.translated(-dock.topLeft());
    if (!isOffPanel)
        return place;
    return isWide(dock) ? QRect(place.x(), 0, place.width(), dock.height())
                        : QRect(0, place.y(), dock.width(), place.height());
}

std::vector<DockItem> deriveItems(const std::vector<PlacedWindow>& windows, const QRect& dock,
                                  DockEdge edge, const std::vector<DockItem>& previous)
{
    struct Button {
        PlacedWindow first;
        std::vector<xcb_window_t> windows;
        bool allIconic = true;
    };
    std::vector<Button> buttons;
    for (const PlacedWindow& window : windows) {
        auto it = std::ranges::find_if(
            buttons, [&](const Button& button) { return isSamePlace(button.first, window, edge); });
        if (it == buttons.end())
            it = buttons.insert(buttons.end(), {.first = window, .windows = {}});
        it->windows.push_back(window.window);
        it->allIconic = it->allIconic && window.isIconic;
    }
    std::vector<DockItem> kept = previous;
    std::vector<DockItem> items;
    for (Button& button : buttons) {
        const QRect raw = button.first.place.translated(dock.topLeft());
        QRect rect = acrossDock(raw, dock, edge);
        // Several rows of buttons share the thickness.
        const bool crowded = std::ranges::any_of(buttons, [&](const Button& other) {
            return &other != &button &&
                   other.first.place.translated(dock.topLeft()).intersects(rect);
        });
        if (crowded)
            rect = raw;
        std::ranges::sort(button.windows);
        items.push_back({.id = reuseId(button.windows, kept),
                         .desktopFile = {},
                         .windows = button.windows,
                         .isMinimizedWindow = button.windows.size() == 1 && button.allIconic,
                         .rect = rect,
                         .magnified = rect});
    }
    std::ranges::stable_sort(items, {}, [edge](const DockItem& item) {
        return isHorizontal(edge) ? std::tuple(item.rect.x(), item.rect.y())
                                  : std::tuple(item.rect.y(), item.rect.x());
    });
    return items;
}

DockEdge edgeOfDock(const QRect& dock, const QRect& screen, const QMargins& strut)
{
    if (strut.bottom() > 0)
        return DockEdge::Bottom;
    if (strut.left() > 0)
        return DockEdge::Left;
    if (strut.right() > 0)
        return DockEdge::Right;
    if (strut.top() > 0)
        return DockEdge::Top;
    // It reserves no space: it hides or floats. If it touches several edges, its shape decides
    // which one it is at.
    struct Side {
        DockEdge edge;
        int gap;
    };
    const Side sides[] = {
        {DockEdge::Bottom, screen.y() + screen.height() - dock.y() - dock.height()},
        {DockEdge::Top, dock.y() - screen.y()},
        {DockEdge::Left, dock.x() - screen.x()},
        {DockEdge::Right, screen.x() + screen.width() - dock.x() - dock.width()},
    };
    const bool isLong = dock.width() >= dock.height();
    return std::ranges::min_element(sides, {},
                                    [isLong](const Side& side) {
                                        return std::pair(std::max(side.gap, 0),
                                                         isHorizontal(side.edge) != isLong);
                                    })
        ->edge;
}

} // namespace lumbrix::platform
