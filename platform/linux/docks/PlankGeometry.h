// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The positions of Plank's icons, from what it reports about each: a point beside the middle of the
// icon, outside of it even when it is magnified.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>

#include <vector>

#include "platform/linux/docks/DockItem.h"

namespace lumbrix::platform
{

struct PlankLook {
    int iconSize = 48;
    bool magnifies = false;
    int zoomPercent = 150;
};

struct PlankPlace {
    QRect rect;
    QRect magnified;
};

/// The distance between the middles of adjacent items, from the middles of some items along the
/// edge. Pure.
int plankPitch(std::vector<int> centres, int iconSize);

/// Middles of `count` items that Plank does not report: the first one at `first`, the others after
/// it at the positions without a reported item. Pure.
std::vector<int> plankFreeCentres(int first, int count, int pitch, const std::vector<int>& told);

/// For each hover point, in the same order, the item's rectangle; `dock` is the dock's window,
/// which ends at the screen's edge. Pure.
std::vector<PlankPlace> plankPlaces(const std::vector<QPoint>& hoverPoints, DockEdge edge,
                                    const QRect& dock, const PlankLook& look);

} // namespace lumbrix::platform
