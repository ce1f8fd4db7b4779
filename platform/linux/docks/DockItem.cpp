// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/DockItem.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <utility>

namespace lumbrix::platform
{

namespace
{

constexpr std::pair<QLatin1String, DockEdge> edges[] = {
    {QLatin1String("left"), DockEdge::Left},
    {QLatin1String("right"), DockEdge::Right},
    {QLatin1String("top"), DockEdge::Top},
    {QLatin1String("bottom"), DockEdge::Bottom},
};

} // namespace

QString edgeName(DockEdge edge)
{
    const auto* known = std::ranges::find(edges, edge, &std::pair<QLatin1String, DockEdge>::second);
    return known->first;
}

std::optional<DockEdge> edgeNamed(const QString& name)
{
    const auto* known = std::ranges::find(edges, name, &std::pair<QLatin1String, DockEdge>::first);
    return known != std::end(edges) ? std::optional(known->second) : std::nullopt;
}

DockItemId newDockItemId()
{
    static std::atomic<DockItemId> last{0};
    return ++last;
}

const DockItem* DockState::item(DockItemId id) const
{
    const auto it = std::ranges::find(items, id, &DockItem::id);
    return it == items.end() ? nullptr : &*it;
}

const DockItem* DockState::itemAt(QPoint point) const
{
    const auto it = std::ranges::find_if(
        items, [point](const DockItem& item) { return item.rect.contains(point); });
    return it == items.end() ? nullptr : &*it;
}

QRect DockState::extent() const
{
    QRect result;
    for (const DockItem& item : items)
        result = result.united(item.rect);
    return result;
}

std::int64_t squaredDistance(QPoint point, const QRect& rect)
{
    const auto outside = [](int value, int start, int length) -> std::int64_t {
        return std::max({start - value, value - (start + length - 1), 0});
    };
    const std::int64_t dx = outside(point.x(), rect.x(), rect.width());
    const std::int64_t dy = outside(point.y(), rect.y(), rect.height());
    return dx * dx + dy * dy;
}

} // namespace lumbrix::platform
