// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Local ("wall") times, and their conversion to instants in a time zone.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QTimeZone>

#include <libical/ical.h>

#include <map>
#include <memory>

namespace lumbrix::platform::ical
{

/// Milliseconds since the start of 1970 in UTC.
using Instant = qint64;
/// Seconds of local time without a zone, since the start of 1970 in local time.
using WallSeconds = qint64;

inline constexpr WallSeconds daySeconds = 86400;

WallSeconds wallSecondsOf(const icaltimetype& time);
/// Without a zone; a date when `isDate`.
icaltimetype timeOfWallSeconds(WallSeconds seconds, bool isDate);

/// Any thread, but one at a time.
class Zone
{
public:
    virtual ~Zone() = default;
    /// For a local time that occurs twice, the first instant; for one that is skipped, uses the
    /// offset from before the gap.
    virtual Instant instantOf(const icaltimetype& wall) const = 0;
    virtual WallSeconds wallOf(Instant instant) const = 0;
};

/// The zones used in one text.
class ZoneTable
{
public:
    /// `local` is the user's zone.
    explicit ZoneTable(const QTimeZone& local);
    ~ZoneTable();

    /// Adds a zone defined in the text (VTIMEZONE). Rules with more than one change a year, and
    /// more than a hundred rules, are left out.
    void define(icalcomponent* vtimezone);

    const Zone& local() const { return *m_local; }
    const Zone& utc() const { return *m_utc; }
    /// The zone for a name in the text: the system's zone, which is more up to date, otherwise the
    /// text's definition; for an unknown name the user's zone.
    const Zone& zone(const QByteArray& tzid);

private:
    std::unique_ptr<Zone> make(const QByteArray& tzid) const;

    const std::unique_ptr<Zone> m_local;
    const std::unique_ptr<Zone> m_utc;
    std::map<QByteArray, icalcomponent*> m_definitions;
    std::map<QByteArray, std::unique_ptr<Zone>> m_zones; ///< null = the user's
};

} // namespace lumbrix::platform::ical
