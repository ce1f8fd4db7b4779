// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Detects which of Plank's docks are hidden, from the icon geometry that they write to the windows.
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

/// As soon as a dock starts to hide, it writes an empty icon geometry at its edge to the windows,
/// and the real geometry again when it starts to reappear. Docks overwrite each other's values, so
/// the last value of each dock is remembered.
class PlankSlides
{
public:
    struct Dock {
        DockItemId id = 0; ///< any number that identifies the dock
        QRect bounds;      ///< of its window, root pixels
        QRect extent;      ///< of its items; empty while none is known
        int scale = 1;     ///< of the places that it writes
    };

    /// Updates from the windows' current values. Values that no dock can have written are ignored.
    void note(const std::vector<x11::TrackedWindowPtr>& windows, const std::vector<Dock>& docks);
    bool isAway(DockItemId dock) const;

private:
    struct Word {
        std::int64_t time = 0;
        bool isAway = false;
    };
    std::map<DockItemId, Word> m_last;
};

/// Plank writes an empty icon geometry when no icon is visible.
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
