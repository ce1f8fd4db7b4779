// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/IconGeometry.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <utility>

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

/// Where it begins along the dock, and how long it is there.
std::pair<int, int> along(const QRect& place, DockEdge edge)
{
    return isHorizontal(edge) ? std::pair(place.x(), place.width())
                              : std::pair(place.y(), place.height());
}

/// Each across the dock, but those that share its thickness with others, in several rows.
std::vector<QRect> spread(const std::vector<QRect>& places, const QRect& dock, DockEdge edge)
{
    std::vector<std::size_t> order(places.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, {}, [&](std::size_t i) { return along(places[i], edge).first; });
    std::vector<QRect> rects;
    rects.reserve(places.size());
    for (const QRect& place : places)
        rects.push_back(acrossDock(place, dock, edge));
    std::vector<bool> isCrowded(places.size());
    for (auto one = order.begin(); one != order.end(); ++one) {
        const auto [start, length] = along(places[*one], edge);
        for (auto other = one + 1;
             other != order.end() && along(places[*other], edge).first < start + length; ++other) {
            isCrowded[*one] = isCrowded[*one] || places[*other].intersects(rects[*one]);
            isCrowded[*other] = isCrowded[*other] || places[*one].intersects(rects[*other]);
        }
    }
    for (std::size_t i = 0; i < places.size(); ++i)
        if (isCrowded[i])
            rects[i] = places[i];
    return rects;
}

/// The items of before, by their windows. Of those that share a window with a button, the first
/// that no other button has is the button's.
class FormerItems
{
public:
    explicit FormerItems(const std::vector<DockItem>& items)
    {
        for (std::size_t i = 0; i < items.size(); ++i) {
            m_ids.push_back(items[i].id);
            for (const xcb_window_t window : items[i].windows)
                m_byWindow.emplace(window, i);
        }
    }

    DockItemId idFor(const std::vector<xcb_window_t>& windows)
    {
        std::optional<std::size_t> first;
        for (const xcb_window_t window : windows) {
            const auto [begin, end] = m_byWindow.equal_range(window);
            for (auto it = begin; it != end; ++it)
                if (m_ids[it->second] != 0)
                    first = std::min(first.value_or(it->second), it->second);
        }
        return first ? std::exchange(m_ids[*first], 0) : newDockItemId();
    }

private:
    std::vector<DockItemId> m_ids; ///< 0 once it is given away
    std::unordered_multimap<xcb_window_t, std::size_t> m_byWindow;
};

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
    // A panel may have hundreds of them, so none is compared with all others.
    std::vector<Button> buttons;
    std::map<std::pair<int, int>, std::vector<std::size_t>> byPlaceAlong;
    for (const PlacedWindow& window : windows) {
        std::vector<std::size_t>& candidates = byPlaceAlong[along(window.place, edge)];
        const auto known = std::ranges::find_if(
            candidates, [&](std::size_t i) { return isSamePlace(buttons[i].first, window, edge); });
        const std::size_t i = known != candidates.end() ? *known : buttons.size();
        if (known == candidates.end()) {
            candidates.push_back(i);
            buttons.push_back({.first = window, .windows = {}});
        }
        buttons[i].windows.push_back(window.window);
        buttons[i].allIconic = buttons[i].allIconic && window.isIconic;
    }
    std::vector<QRect> places;
    places.reserve(buttons.size());
    for (const Button& button : buttons)
        places.push_back(button.first.place.translated(dock.topLeft()));
    const std::vector<QRect> rects = spread(places, dock, edge);
    FormerItems former(previous);
    std::vector<DockItem> items;
    for (std::size_t i = 0; i < buttons.size(); ++i) {
        Button& button = buttons[i];
        const QRect& rect = rects[i];
        std::ranges::sort(button.windows);
        items.push_back({.id = former.idFor(button.windows),
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
