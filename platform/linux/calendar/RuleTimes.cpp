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

/// A little more than every quarter of an hour.
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

/// The length of the rule's period; 0 if it is not constant.
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

/// Skips past times that are over, perhaps years of them.
icaltimetype skipAhead(const icalrecurrencetype& rule, const icaltimetype& start, WallSeconds from)
{
    const WallSeconds first = wallSecondsOf(start);
    const WallSeconds period = periodOf(rule);
    // A rule with a COUNT must be counted from its start; another calendar system has other days.
    if (rule.count > 0 || rule.rscale || period <= 0 || from - first <= 2 * period)
        return start;
    return timeOfWallSeconds(first + ((from - first) / period - 1) * period, start.is_date);
}

/// Whether the library can follow the rule in reasonable time. A rule whose parts exclude each
/// other is followed to its end in steps of its frequency, and each step takes as many checks as
/// there are times of day. The library cannot be stopped meanwhile, so their number must be at most
/// our own maximum of steps. `length` is how far the rule is followed.
bool isManageable(const icalrecurrencetype& rule, WallSeconds length)
{
    if (rule.freq == ICAL_NO_RECURRENCE || rule.interval < 1 || timesOfDay(rule) > maxTimesOfDay)
        return false;
    if (rule.freq < ICAL_DAILY_RECURRENCE) {
        if (hasDates(rule))
            return false;
        if (!hasTimes(rule))
            return true; // every step gives a time
        // With an interval of one hour some hours of each week match.
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
                                    WallSeconds from, WallSeconds until, FruitlessRules& fruitless,
                                    const std::function<bool()>& stop)
{
    std::vector<icaltimetype> times;
    const icaltimetype first = skipAhead(rule, start, from);
    if (stop() || fruitless.areTooMany() || !isManageable(rule, until - wallSecondsOf(first)))
        return times;
    if (icaltime_is_null_time(rule.until) || wallSecondsOf(rule.until) > until)
        rule.until = timeOfWallSeconds(until, false);
    rule.until.is_date = start.is_date;
    if (wallSecondsOf(rule.until) < wallSecondsOf(first))
        return times; // over before it begins, or not begun yet
    const IteratorPtr iterator(icalrecur_iterator_new(rule, first));
    bool isFruitful = false;
    for (int step = 1; iterator && step <= maxSteps && times.size() < maxTimes; ++step) {
        if (step % 256 == 0 && stop())
            break;
        const icaltimetype time = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(time))
            break;
        isFruitful = true;
        // Before 1752 the library's years have days that ours do not: the 29th of February of 700.
        if (!isUsable(time))
            continue;
        if (wallSecondsOf(time) > until)
            break;
        if (wallSecondsOf(time) >= from)
            times.push_back(time);
    }
    if (!isFruitful)
        fruitless.note();
    return times;
}

} // namespace lumbrix::platform::ical
