// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/RuleTimes.h"

#include <algorithm>

#include "platform/linux/calendar/EventTimes.h"

namespace lumbrix::platform::ical
{
namespace
{

constexpr int maxSteps = 200'000;
constexpr std::size_t maxTimes = 10'000;

/// Quarters of all hours, and then some.
constexpr qint64 maxTimesOfDay = 100;

bool hasDates(const icalrecurrencetype& rule)
{
    return listed(rule.by_month) + listed(rule.by_month_day) + listed(rule.by_year_day) +
               listed(rule.by_week_no) + listed(rule.by_set_pos) >
           0;
}

bool hasTimes(const icalrecurrencetype& rule)
{
    return listed(rule.by_day) + listed(rule.by_hour) + listed(rule.by_minute) +
               listed(rule.by_second) >
           0;
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

/// A rule whose parts exclude each other is followed to its end in steps of its frequency, each of
/// which is as many as there are times of a day. Nothing can stop the library meanwhile, so these
/// are no more than we would go through. `length` is how far the rule is followed.
bool isManageable(const icalrecurrencetype& rule, WallSeconds length)
{
    if (rule.freq == ICAL_NO_RECURRENCE || rule.interval < 1 || timesOfDay(rule) > maxTimesOfDay)
        return false;
    if (rule.freq < ICAL_DAILY_RECURRENCE) {
        if (hasDates(rule))
            return false;
        if (!hasTimes(rule))
            return true; // every step is a time
        // Of the hours of a week some match, if each of them is looked at.
        if (rule.freq != ICAL_HOURLY_RECURRENCE || rule.interval != 1)
            return false;
    }
    qint64 inPeriod = timesOfDay(rule);
    if (rule.freq == ICAL_WEEKLY_RECURRENCE)
        inPeriod *= std::max<qint64>(listed(rule.by_day), 1);
    const WallSeconds period = periodOf(rule);
    return period == 0 || length / period * inPeriod <= maxSteps;
}

} // namespace

std::vector<icaltimetype> ruleTimes(icalrecurrencetype rule, const icaltimetype& start,
                                    WallSeconds from, WallSeconds until,
                                    const std::function<bool()>& stop)
{
    std::vector<icaltimetype> times;
    const icaltimetype first = skipAhead(rule, start, from);
    if (stop() || !isManageable(rule, until - wallSecondsOf(first)))
        return times;
    if (icaltime_is_null_time(rule.until) || wallSecondsOf(rule.until) > until)
        rule.until = timeOfWallSeconds(until, false);
    rule.until.is_date = start.is_date;
    const IteratorPtr iterator(icalrecur_iterator_new(rule, first));
    for (int step = 1; iterator && step <= maxSteps && times.size() < maxTimes; ++step) {
        if (step % 256 == 0 && stop())
            break;
        const icaltimetype time = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(time))
            break;
        // Before 1752 the library's years have days that ours do not: the 29th of February of 700.
        if (!isUsable(time))
            continue;
        if (wallSecondsOf(time) > until)
            break;
        if (wallSecondsOf(time) >= from)
            times.push_back(time);
    }
    return times;
}

} // namespace lumbrix::platform::ical
