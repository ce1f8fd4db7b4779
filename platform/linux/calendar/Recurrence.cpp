// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/Recurrence.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/linux/calendar/EventTimes.h"

namespace lumbrix::platform::ical
{
namespace
{

constexpr qsizetype maxTitleLength = 1000;
/// More than the largest difference between two time zones.
constexpr WallSeconds slack = 2 * daySeconds;

/// Occurrences of a rule that are cancelled or changed.
class Exceptions
{
public:
    void add(const Written& time, const Written& start)
    {
        if (start.isDate() && !time.isDate())
            m_days.insert(dayOf(start.zone->wallOf(time.instant())));
        else if (time.isDate())
            m_days.insert(dayOf(wallSecondsOf(time.wall)));
        else
            m_instants.insert(time.instant());
    }
    bool contains(const icaltimetype& wall, Instant instant) const
    {
        return m_instants.count(instant) != 0 || m_days.count(dayOf(wallSecondsOf(wall))) != 0;
    }

private:
    static qint64 dayOf(WallSeconds seconds)
    {
        return wallSecondsOf(timeOfWallSeconds(seconds, true)) / daySeconds;
    }

    std::set<Instant> m_instants;
    std::set<qint64> m_days;
};

bool isCancelled(icalcomponent* event)
{
    icalproperty* status = icalcomponent_get_first_property(event, ICAL_STATUS_PROPERTY);
    return status && icalproperty_get_status(status) == ICAL_STATUS_CANCELLED;
}

int sequenceOf(icalcomponent* event)
{
    icalproperty* sequence = icalcomponent_get_first_property(event, ICAL_SEQUENCE_PROPERTY);
    return sequence ? icalproperty_get_sequence(sequence) : 0;
}

QString titleOf(icalcomponent* event)
{
    icalproperty* summary = icalcomponent_get_first_property(event, ICAL_SUMMARY_PROPERTY);
    const char* text = summary ? icalproperty_get_summary(summary) : nullptr;
    return QString::fromUtf8(text).left(maxTitleLength);
}

bool isException(icalcomponent* event)
{
    return icalcomponent_get_first_property(event, ICAL_RECURRENCEID_PROPERTY) != nullptr;
}

/// One event, expanded by its own rules.
class Event
{
public:
    Event(icalcomponent* event, const Written& start, ZoneTable& zones)
        : m_event(event), m_title(titleOf(event)), m_start(start),
          m_length(lengthOf(event, start, zones)), m_zones(zones)
    {
    }

    std::vector<Occurrence> within(const Window& window, Exceptions exceptions,
                                   FruitlessRules& fruitless, const Stop& stop)
    {
        m_window = window;
        // The local times that can fall into the window.
        m_from = m_start.zone->wallOf(window.start) - slack - m_length.days * daySeconds -
                 m_length.milliseconds / 1000;
        m_until = m_start.zone->wallOf(window.end) + slack;
        forEachProperty(m_event, ICAL_EXDATE_PROPERTY, [&](icalproperty* property) {
            const icaltimetype time = icalproperty_get_exdate(property);
            if (isUsable(time))
                exceptions.add(written(time, property, m_zones), m_start);
        });
        // The first occurrence counts even if the rules do not produce it.
        addUnless(exceptions, m_start.wall, m_length);
        forEachProperty(m_event, ICAL_RRULE_PROPERTY, [&](icalproperty* property) {
            for (const icaltimetype& time :
                 ruleTimes(onOwnClock(icalproperty_get_rrule(property)), m_start.wall, m_from,
                           m_until, fruitless, stop))
                addUnless(exceptions, time, m_length);
        });
        forEachProperty(m_event, ICAL_RDATE_PROPERTY,
                        [&](icalproperty* property) { addDate(exceptions, property); });
        std::vector<Occurrence> result;
        for (auto& [start, occurrence] : m_occurrences)
            result.push_back(std::move(occurrence));
        return result;
    }

private:
    /// The end of a rule is in UTC or a date, even if the event has a zone.
    icalrecurrencetype onOwnClock(icalrecurrencetype rule) const
    {
        icaltimetype& until = rule.until;
        if (!isUsable(until)) {
            until = icaltime_null_time();
        } else if (icaltime_is_utc(until)) {
            const bool isMidnight = until.hour == 0 && until.minute == 0 && until.second == 0;
            until.zone = nullptr;
            // For an all-day event the end is a day; midnight means the day that starts then.
            if (!m_start.isDate() || !isMidnight)
                until =
                    timeOfWallSeconds(m_start.zone->wallOf(m_zones.utc().instantOf(until)), false);
        } else if (until.is_date && !m_start.isDate()) {
            until = timeOfWallSeconds(wallSecondsOf(until) + daySeconds - 1, false);
        }
        until.zone = nullptr;
        return rule;
    }

    void addDate(const Exceptions& exceptions, icalproperty* property)
    {
        const icaldatetimeperiodtype date = icalproperty_get_rdate(property);
        const bool isPeriod = icaltime_is_null_time(date.time);
        const icaltimetype time = isPeriod ? date.period.start : date.time;
        if (!isUsable(time))
            return;
        const Written start = written(time, property, m_zones);
        const Instant instant = start.instant();
        Length length = m_length;
        if (isPeriod) {
            const bool hasEnd = isUsable(date.period.end);
            const Instant end =
                hasEnd ? written(date.period.end, property, m_zones).instant()
                       : instant + Instant{1000} * icaldurationtype_as_int(date.period.duration);
            length = {0, std::max<Instant>(end - instant, 0)};
        }
        // It may have another zone than the event.
        const WallSeconds wall =
            start.isDate() ? wallSecondsOf(start.wall) : m_start.zone->wallOf(instant);
        addUnless(exceptions, timeOfWallSeconds(wall, m_start.isDate()), length);
    }

    void addUnless(const Exceptions& exceptions, const icaltimetype& wall, const Length& length)
    {
        const WallSeconds seconds = wallSecondsOf(wall);
        if (seconds < m_from || seconds > m_until)
            return;
        const Instant start = m_start.zone->instantOf(wall);
        const Instant end = length.endOf(wall, *m_start.zone);
        const bool overlaps = start < m_window.end &&
                              (end > m_window.start || (end == start && start >= m_window.start));
        if (overlaps && !exceptions.contains(wall, start) &&
            m_occurrences.size() < maxOccurrences / 10)
            m_occurrences.emplace(start, Occurrence{m_title, start, std::max(start, end)});
    }

    icalcomponent* m_event;
    const QString m_title; ///< shared by all occurrences
    const Written m_start;
    const Length m_length;
    ZoneTable& m_zones;
    Window m_window;
    WallSeconds m_from = 0;
    WallSeconds m_until = 0;
    std::map<Instant, Occurrence> m_occurrences;
};

/// The valid one of several versions: the last one with the highest sequence number.
void keepNewer(icalcomponent*& kept, icalcomponent* event)
{
    if (!kept || sequenceOf(event) >= sequenceOf(kept))
        kept = event;
}

} // namespace

bool mayMatter(icalcomponent* event, const Window& window)
{
    if (isException(event) || icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY) ||
        icalcomponent_get_first_property(event, ICAL_RDATE_PROPERTY))
        return true;
    ZoneTable zones(QTimeZone::utc());
    const auto start = writtenIn(event, ICAL_DTSTART_PROPERTY, icalproperty_get_dtstart, zones);
    if (!start)
        return false;
    const Instant end = lengthOf(event, *start, zones).endOf(start->wall, zones.utc());
    return wallSecondsOf(start->wall) - slack <= window.end / 1000 &&
           end / 1000 + slack >= window.start / 1000;
}

std::vector<Occurrence> expand(const std::vector<icalcomponent*>& series, ZoneTable& zones,
                               const Window& window, FruitlessRules& fruitless, const Stop& stop)
{
    const auto startOf = [&zones](icalcomponent* event) {
        return writtenIn(event, ICAL_DTSTART_PROPERTY, icalproperty_get_dtstart, zones);
    };
    icalcomponent* main = nullptr;
    std::map<QByteArray, icalcomponent*> replacements; ///< by the time that they replace
    for (icalcomponent* event : series) {
        icalproperty* original =
            icalcomponent_get_first_property(event, ICAL_RECURRENCEID_PROPERTY);
        keepNewer(original ? replacements[icalproperty_get_value_as_string(original)] : main,
                  event);
    }

    std::vector<Occurrence> result;
    const auto add = [&](icalcomponent* event, const Exceptions& exceptions) {
        const auto start = startOf(event);
        if (!start || isCancelled(event) || result.size() >= maxOccurrences || stop())
            return;
        auto found = Event(event, *start, zones).within(window, exceptions, fruitless, stop);
        std::move(found.begin(), found.end(), std::back_inserter(result));
    };
    Exceptions replaced;
    const auto mainStart = main ? startOf(main) : std::nullopt;
    for (const auto& [original, event] : replacements) {
        const auto time =
            writtenIn(event, ICAL_RECURRENCEID_PROPERTY, icalproperty_get_recurrenceid, zones);
        if (mainStart && time)
            replaced.add(*time, *mainStart);
        add(event, {});
    }
    if (main)
        add(main, replaced);
    return result;
}

} // namespace lumbrix::platform::ical
