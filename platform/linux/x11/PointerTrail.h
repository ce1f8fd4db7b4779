// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where the pointer was lately, and from that, where it is about to stop.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QPointF>

#include <xcb/xcb.h>

#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/RunLoop.h"

namespace lumbrix::platform::x11
{

/// A hand slows down well before the place it aims at, and one that only crosses a place does not.
/// Places are root pixels.
class PointerTrail
{
public:
    struct Place {
        QPoint at;
        Seconds ago = 0; ///< since it came there
    };

    /// It is there. `time` is the server's, in milliseconds, which wrap; `now` the run loop's.
    /// Event thread, as the next two.
    void moved(QPoint at, xcb_timestamp_t time, Seconds now, double pixelsPerPoint);
    /// Where it will stop, if its pace shows that it slows down, creeps, or was put where it is;
    /// null while it moves on.
    std::optional<QPoint> stop() const { return m_stop; }
    /// The present place.
    QPoint last() const { return m_history.empty() ? QPoint() : m_history.back().at; }

    /// Of half a second, the latest first; the last one is where it was when that began, if that is
    /// known. Any thread.
    std::vector<Place> places(Seconds now) const;

private:
    struct Sample {
        QPoint at;
        std::int64_t time; ///< milliseconds
    };

    void add(QPoint at, std::int64_t passed); ///< milliseconds since the one before
    QPointF placeAt(std::int64_t time) const;
    /// Pixels a millisecond, before that time.
    double speedBefore(std::int64_t time) const;
    std::optional<QPoint> foreseenStop(double pixelsPerPoint) const;
    bool wasPut(double pixelsPerPoint) const;

    mutable std::mutex m_mutex;   ///< writing, and reading on other threads
    std::deque<Sample> m_history; ///< the oldest first
    Seconds m_lastAt = 0;         ///< the run loop's time of the last one
    xcb_timestamp_t m_lastTime = 0;
    std::int64_t m_putAt = 0;                 ///< when it was put somewhere last
    std::optional<std::int64_t> m_foreseenAt; ///< since when a stop is foreseen
    std::optional<QPoint> m_stop;
};

} // namespace lumbrix::platform::x11
