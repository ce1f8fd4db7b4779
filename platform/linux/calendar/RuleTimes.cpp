// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/RuleTimes.h"

#include <algorithm>

namespace lumbrix::platform::ical
{
namespace
{

constexpr int maxSteps = 200'000;
constexpr std::size_t maxTimes = 10'000;

bool has(const short* list) { return list[0] != ICAL_RECURRENCE_ARRAY_MAX; }

/// A rule whose parts exclude each other is followed to the end of time in steps of its frequency.
/// That is a matter of seconds for days, but of hours for minutes.
bool isManageable(const icalrecurrencetype& rule)
{
    if (rule.freq > ICAL_HOURLY_RECURRENCE)
        return rule.freq != ICAL_NO_RECURRENCE;
    const bool hasDates = has(rule.by_month) || has(rule.by_month_day) || has(rule.by_year_day) ||
                          has(rule.by_week_no) || has(rule.by_set_pos);
    const bool hasTimes =
        has(rule.by_day) || has(rule.by_hour) || has(rule.by_minute) || has(rule.by_second);
    // Of the hours of a week some match, if each of them is looked at.
    return !hasDates && (!hasTimes || (rule.freq == ICAL_HOURLY_RECURRENCE && rule.interval == 1));
}

/// How long it takes until the rule is at the same point again; 0 where that differs.
WallSeconds periodOf(const icalrecurrencetype& rule)
{
    switch (rule.freq) {
    case ICAL_SECONDLY_RECURRENCE:
        return rule.interval;
    case ICAL_MINUTELY_RECURRENCE:
        return WallSeconds{rule.interval} * 60;
    case ICAL_HOURLY_RECURRENCE:
        return WallSeconds{rule.interval} * 3600;
    case ICAL_DAILY_RECURRENCE:
        return WallSeconds{rule.interval} * daySeconds;
    case ICAL_WEEKLY_RECURRENCE:
        return WallSeconds{rule.interval} * 7 * daySeconds;
    default:
        return 0;
    }
}

/// Years of days that are over need not be gone through.
icaltimetype skipAhead(const icalrecurrencetype& rule, const icaltimetype& start, WallSeconds from)
{
    const WallSeconds first = wallSecondsOf(start);
    const WallSeconds period = periodOf(rule);
    // One that counts its times has to be counted; another calendar has other days.
    if (rule.count > 0 || rule.rscale || period <= 0 || from - first <= 2 * period)
        return start;
    return timeOfWallSeconds(first + ((from - first) / period - 1) * period, start.is_date);
}

} // namespace

std::vector<icaltimetype> ruleTimes(icalrecurrencetype rule, const icaltimetype& start,
                                    WallSeconds from, WallSeconds until,
                                    const std::function<bool()>& stop)
{
    std::vector<icaltimetype> times;
    if (!isManageable(rule))
        return times;
    if (icaltime_is_null_time(rule.until) || wallSecondsOf(rule.until) > until)
        rule.until = timeOfWallSeconds(until, false);
    rule.until.is_date = start.is_date;
    const IteratorPtr iterator(icalrecur_iterator_new(rule, skipAhead(rule, start, from)));
    for (int step = 1; iterator && step <= maxSteps && times.size() < maxTimes; ++step) {
        if (step % 256 == 0 && stop())
            break;
        const icaltimetype time = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(time) || wallSecondsOf(time) > until)
            break;
        if (wallSecondsOf(time) >= from)
            times.push_back(time);
    }
    return times;
}

} // namespace lumbrix::platform::ical
