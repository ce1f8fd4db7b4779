// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// When an event is and how long it lasts, as its text has it.
#pragma once

#include <optional>

#include "platform/linux/calendar/IcalHandles.h"
#include "platform/linux/calendar/WallTime.h"

namespace lumbrix::platform::ical
{

/// Whether there is a time at all, and one that can be reckoned with.
bool isUsable(const icaltimetype& time);

/// A time as it is written: on the clock of a zone, or a mere date.
struct Written {
    icaltimetype wall = icaltime_null_time(); ///< without zone
    const Zone* zone = nullptr;

    bool isDate() const { return wall.is_date != 0; }
    Instant instant() const { return zone->instantOf(wall); }
};

/// A usable time that the property has, with the zone that the property names.
Written written(icaltimetype time, icalproperty* property, ZoneTable& zones);

/// The time of the first property of that kind; null when there is none that is usable.
std::optional<Written> writtenIn(icalcomponent* event, icalproperty_kind kind,
                                 icaltimetype (*get)(const icalproperty*), ZoneTable& zones);

/// How long each occurrence lasts. Days are days of the calendar, whatever their length.
struct Length {
    int days = 0;
    Instant milliseconds = 0;

    Instant endOf(const icaltimetype& wall, const Zone& zone) const;
};

/// Of an event that starts then. Nothing when the text does not say or makes no sense, but at least
/// a day for whole days.
Length lengthOf(icalcomponent* event, const Written& start, ZoneTable& zones);

} // namespace lumbrix::platform::ical
