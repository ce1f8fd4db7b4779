// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The start and duration of an event, from its text.
#pragma once

#include <optional>

#include "platform/linux/calendar/IcalHandles.h"
#include "platform/linux/calendar/WallTime.h"

namespace lumbrix::platform::ical
{

/// Whether the time exists and is within the range that can be calculated with.
bool isUsable(const icaltimetype& time);

/// A time as written: local time of a zone, or a date only.
struct Written {
    icaltimetype wall = icaltime_null_time(); ///< without zone
    const Zone* zone = nullptr;

    bool isDate() const { return wall.is_date != 0; }
    Instant instant() const { return zone->instantOf(wall); }
};

/// A usable time of the property, with the zone that the property names.
Written written(icaltimetype time, icalproperty* property, ZoneTable& zones);

/// The time of the first property of that kind; null if there is no usable one.
std::optional<Written> writtenIn(icalcomponent* event, icalproperty_kind kind,
                                 icaltimetype (*get)(const icalproperty*), ZoneTable& zones);

/// The duration of each occurrence. Days are calendar days, whatever their length.
struct Length {
    int days = 0;
    Instant milliseconds = 0;

    Instant endOf(const icaltimetype& wall, const Zone& zone) const;
};

/// The duration of an event with that start. Zero if the text has none or an invalid one, but at
/// least one day for an all-day event.
Length lengthOf(icalcomponent* event, const Written& start, ZoneTable& zones);

} // namespace lumbrix::platform::ical
