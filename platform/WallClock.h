// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the clock on the wall shows. For what is measured rather than shown there is the run loop's.
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
    /// The present time in the user's time zone, which the answer carries and which may be another
    /// one next time. May jump either way.
    virtual QDateTime now() const = 0;

    /// The day of `present`, a time that carries its zone, lies between these. Both are that
    /// zone's; there are days of 23 and of 25 hours, and days that begin at one.
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
