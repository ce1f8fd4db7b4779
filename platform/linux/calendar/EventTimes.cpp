// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/EventTimes.h"

#include <QtCore/QDate>

#include <algorithm>

namespace lumbrix::platform::ical
{
namespace
{

std::optional<icaldurationtype> durationOf(icalcomponent* event)
{
    icalproperty* property = icalcomponent_get_first_property(event, ICAL_DURATION_PROPERTY);
    if (!property)
        return std::nullopt;
    const icaldurationtype duration = icalproperty_get_duration(property);
    if (icaldurationtype_is_bad_duration(duration) || duration.is_neg)
        return std::nullopt;
    return duration;
}

} // namespace

bool isUsable(const icaltimetype& time)
{
    return !icaltime_is_null_time(time) && QDate::isValid(time.year, time.month, time.day) &&
           time.year > 1 && time.year < 9999;
}

Written written(icaltimetype time, icalproperty* property, ZoneTable& zones)
{
    Written result{time, &zones.local()};
    if (icaltime_is_utc(time))
        result.zone = &zones.utc();
    else if (icalparameter* tzid = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
             tzid && !time.is_date)
        result.zone = &zones.zone(icalparameter_get_tzid(tzid));
    result.wall.zone = nullptr;
    return result;
}

std::optional<Written> writtenIn(icalcomponent* event, icalproperty_kind kind,
                                 icaltimetype (*get)(const icalproperty*), ZoneTable& zones)
{
    icalproperty* property = icalcomponent_get_first_property(event, kind);
    if (!property || !isUsable(get(property)))
        return std::nullopt;
    return written(get(property), property, zones);
}

Instant Length::endOf(const icaltimetype& wall, const Zone& zone) const
{
    const Instant end = days == 0 ? zone.instantOf(wall)
                                  : zone.instantOf(timeOfWallSeconds(
                                        wallSecondsOf(wall) + days * daySeconds, wall.is_date));
    return end + milliseconds;
}

Length lengthOf(icalcomponent* event, const Written& start, ZoneTable& zones)
{
    constexpr WallSeconds longest = 10'000 * daySeconds;
    Length length;
    if (const auto end = writtenIn(event, ICAL_DTEND_PROPERTY, icalproperty_get_dtend, zones)) {
        const WallSeconds onTheClock = wallSecondsOf(end->wall) - wallSecondsOf(start.wall);
        if (start.isDate())
            length.days =
                static_cast<int>(std::clamp(onTheClock, WallSeconds{0}, longest) / daySeconds);
        else
            length.milliseconds =
                std::clamp<Instant>(end->instant() - start.instant(), 0, longest * 1000);
    } else if (const auto duration = durationOf(event)) {
        length.days =
            static_cast<int>(std::min<unsigned>(duration->weeks * 7 + duration->days, 10'000));
        if (!start.isDate())
            length.milliseconds =
                Instant{1000} * (Instant{duration->hours} * 3600 + Instant{duration->minutes} * 60 +
                                 duration->seconds);
    }
    if (start.isDate())
        length.days = std::max(length.days, 1);
    return length;
}

} // namespace lumbrix::platform::ical
