// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which docks of Plank have slid out of sight, told from the icon places that they write to the
// windows.
#pragma once

#include <QtCore/QRect>

#include <cstdint>
#include <map>
#include <utility>
#include <vector>

#include "platform/linux/docks/DockItem.h"
#include "platform/linux/x11/TrackedWindow.h"

namespace lumbrix::platform
{

/// A dock gives the windows an icon without size, at the edge that it is on, as soon as it starts
/// to slide away, and their place back when it starts to come. Docks overwrite what others wrote,
/// so what each has said last is remembered.
class PlankSlides
{
public:
    struct Dock {
        DockItemId id = 0; ///< any number that stays the dock's
        QRect bounds;      ///< of its window, root pixels
        QRect extent;      ///< of its items; empty while none is known
        int scale = 1;     ///< of the places that it writes
    };

    /// Takes in what the windows have now. What no dock can have written is passed over.
    void note(const std::vector<x11::TrackedWindowPtr>& windows, const std::vector<Dock>& docks);
    bool isAway(DockItemId dock) const;

private:
    struct Word {
        std::int64_t time = 0;
        bool isAway = false;
    };
    std::map<DockItemId, Word> m_last;
};

/// Plank writes an icon without size when there is none to be seen.
inline bool isShownByDock(const x11::TrackedWindow& window)
{
    return window.iconGeometry && !window.iconGeometry->isEmpty();
}

/// The middle of the icon place, in root pixels.
inline QPoint iconCentre(const QRect& place, int scale)
{
    return QPoint(place.x() + place.width() / 2, place.y() + place.height() / 2) * scale;
}

} // namespace lumbrix::platform
