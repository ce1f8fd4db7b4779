// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankGeometry.h"

#include <algorithm>
#include <cstdlib>

namespace lumbrix::platform
{

namespace
{

// The point's distance from the screen edge that the dock is at.
int depthOf(QPoint point, DockEdge edge, const QRect& dock)
{
    switch (edge) {
    case DockEdge::Left:
        return point.x() - dock.x();
    case DockEdge::Right:
        return dock.x() + dock.width() - point.x();
    case DockEdge::Top:
        return point.y() - dock.y();
    case DockEdge::Bottom:
        break;
    }
    return dock.y() + dock.height() - point.y();
}

QRect standingOnEdge(int centre, int length, int depth, DockEdge edge, const QRect& dock)
{
    const int start = centre - length / 2;
    switch (edge) {
    case DockEdge::Left:
        return {dock.x(), start, depth, length};
    case DockEdge::Right:
        return {dock.x() + dock.width() - depth, start, depth, length};
    case DockEdge::Top:
        return {start, dock.y(), length, depth};
    case DockEdge::Bottom:
        break;
    }
    return {start, dock.y() + dock.height() - depth, length, depth};
}

} // namespace

int plankPitch(std::vector<int> centres, int iconSize)
{
    std::ranges::sort(centres);
    // Themes pad icons by a quarter of their size; the distance of neighbours gives the exact
    // padding. An item between them that is not an application makes the distance larger, never
    // smaller.
    int pitch = 0;
    for (std::size_t i = 1; i < centres.size(); ++i) {
        const int distance = centres[i] - centres[i - 1];
        if (distance >= iconSize && (pitch == 0 || distance < pitch))
            pitch = distance;
    }
    return pitch == 0 || pitch > 2 * iconSize ? iconSize + iconSize / 4 : pitch;
}

std::vector<int> plankFreeCentres(int first, int count, int pitch, const std::vector<int>& told)
{
    std::vector<int> centres;
    int centre = first;
    for (int i = 0;
         static_cast<int>(centres.size()) < count && i < count + static_cast<int>(told.size());
         ++i, centre += pitch) {
        const bool isTold = std::ranges::any_of(
            told, [&](int other) { return std::abs(other - centre) < pitch / 2; });
        if (!isTold)
            centres.push_back(centre);
    }
    return centres;
}

std::vector<PlankPlace> plankPlaces(const std::vector<QPoint>& hoverPoints, DockEdge edge,
                                    const QRect& dock, const PlankLook& look)
{
    const auto along = [edge](QPoint point) { return isHorizontal(edge) ? point.x() : point.y(); };
    std::vector<int> centres;
    centres.reserve(hoverPoints.size());
    for (const QPoint point : hoverPoints)
        centres.push_back(along(point));
    const int pitch = plankPitch(std::move(centres), look.iconSize);
    const int growth =
        look.magnifies ? look.iconSize * std::max(look.zoomPercent - 100, 0) / 100 : 0;
    // An item that has just been added slides in from the screen's edge, so the point furthest from
    // the edge is the final one for all. The points are outside magnified icons: minus the growth
    // by magnification they give the bound at rest.
    int highest = 0;
    for (const QPoint point : hoverPoints)
        highest = std::max(highest, depthOf(point, edge, dock));
    const int depth = std::clamp(pitch, 1, std::max(highest - growth, 1));
    std::vector<PlankPlace> places;
    places.reserve(hoverPoints.size());
    for (const QPoint point : hoverPoints) {
        places.push_back({standingOnEdge(along(point), pitch, depth, edge, dock),
                          standingOnEdge(along(point), pitch, depth + growth, edge, dock)});
    }
    return places;
}

} // namespace lumbrix::platform
