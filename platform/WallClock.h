// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The time of day. For measuring time use the run loop's clock.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QTimeZone>

namespace lumbrix::platform
{

/// Any thread.
class WallClock
{
public:
    virtual ~WallClock() = default;
    /// The current time in the user's time zone. The result contains the zone, which may be another
    /// one in the next call. The time may jump forwards or backwards.
    virtual QDateTime now() const = 0;

    /// The start and end of the day of `present`, which contains its zone. Both are in that zone.
    /// Some days have 23 or 25 hours, and some start at one o'clock.
    static QDateTime startOfDay(const QDateTime& present)
    {
        return present.date().startOfDay(present.timeZone());
    }
    static QDateTime endOfDay(const QDateTime& present)
    {
        return present.date().addDays(1).startOfDay(present.timeZone());
    }
};

} // namespace lumbrix::platform
