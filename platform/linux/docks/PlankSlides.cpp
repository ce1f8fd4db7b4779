// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankSlides.h"

namespace lumbrix::platform
{

void PlankSlides::note(const std::vector<x11::TrackedWindowPtr>& windows,
                       const std::vector<Dock>& docks)
{
    for (const x11::TrackedWindowPtr& window : windows) {
        if (!window->iconGeometry)
            continue;
        const Dock* writer = nullptr;
        std::int64_t least = 0;
        for (const Dock& dock : docks) {
            const QPoint centre = iconCentre(*window->iconGeometry, dock.scale);
            // An empty icon geometry is on the line just after the last pixels.
            if (!dock.bounds.adjusted(-1, -1, 1, 1).contains(centre))
                continue;
            const std::int64_t distance =
                squaredDistance(centre, dock.extent.isEmpty() ? dock.bounds : dock.extent);
            if (!writer || distance < least) {
                writer = &dock;
                least = distance;
            }
        }
        if (!writer)
            continue;
        Word& last = m_last[writer->id];
        if (window->iconGeometryTime >= last.time)
            last = {window->iconGeometryTime, !isShownByDock(*window)};
    }
}

bool PlankSlides::isAway(DockItemId dock) const
{
    const auto it = m_last.find(dock);
    return it != m_last.end() && it->second.isAway;
}

} // namespace lumbrix::platform
