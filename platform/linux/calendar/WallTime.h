// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Times as a clock on some wall shows them, and what instants they are in a time zone.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QTimeZone>

#include <libical/ical.h>

#include <map>
#include <memory>

namespace lumbrix::platform::ical
{

/// Milliseconds since the beginning of 1970 in UTC.
using Instant = qint64;
/// Seconds on a clock that knows no zone, since the beginning of 1970 on that clock.
using WallSeconds = qint64;

inline constexpr WallSeconds daySeconds = 86400;

WallSeconds wallSecondsOf(const icaltimetype& time);
/// Without a zone; a date when `isDate`.
icaltimetype timeOfWallSeconds(WallSeconds seconds, bool isDate);

/// Any thread at a time.
class Zone
{
public:
    virtual ~Zone() = default;
    /// A time that the clock shows twice is the first of the two; one that it skips is counted on
    /// from before the gap.
    virtual Instant instantOf(const icaltimetype& wall) const = 0;
    virtual WallSeconds wallOf(Instant instant) const = 0;
};

/// The zones that the times of one text are in.
class ZoneTable
{
public:
    /// `local` is the user's zone.
    explicit ZoneTable(const QTimeZone& local);
    ~ZoneTable();

    /// Adds what a text says of its zones (VTIMEZONE). Rules by which clocks change more often than
    /// once a year, and those beyond a hundred, are left out.
    void define(icalcomponent* vtimezone);

    const Zone& local() const { return *m_local; }
    const Zone& utc() const { return *m_utc; }
    /// By the name that a text gives it: as the system knows it, which is more recent, else as the
    /// text defines it; the user's zone for a name that says nothing.
    const Zone& zone(const QByteArray& tzid);

private:
    std::unique_ptr<Zone> make(const QByteArray& tzid) const;

    const std::unique_ptr<Zone> m_local;
    const std::unique_ptr<Zone> m_utc;
    std::map<QByteArray, icalcomponent*> m_definitions;
    std::map<QByteArray, std::unique_ptr<Zone>> m_zones; ///< null = the user's
};

} // namespace lumbrix::platform::ical
