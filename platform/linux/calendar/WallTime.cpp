// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/WallTime.h"

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>

#include "platform/StringLiterals.h"
#include "platform/linux/calendar/IcalHandles.h"

namespace lumbrix::platform::ical
{
namespace
{

const qint64 epochDay = QDate(1970, 1, 1).toJulianDay();

class SystemZone final : public Zone
{
public:
    explicit SystemZone(const QTimeZone& zone) : m_zone(zone) {}

    Instant instantOf(const icaltimetype& wall) const override
    {
        const WallSeconds seconds = wallSecondsOf(wall);
        // The offset one day earlier is the one before any change; it resolves both ambiguous and
        // skipped times.
        const int before = offsetAt(seconds - daySeconds);
        if (offsetAt(seconds - before) == before)
            return (seconds - before) * 1000;
        const int after = offsetAt(seconds + daySeconds);
        return (seconds - (offsetAt(seconds - after) == after ? after : before)) * 1000;
    }

    WallSeconds wallOf(Instant instant) const override
    {
        const qint64 seconds = instant / 1000;
        return seconds + offsetAt(seconds);
    }

private:
    int offsetAt(qint64 utcSeconds) const
    {
        return m_zone.offsetFromUtc(QDateTime::fromSecsSinceEpoch(utcSeconds, Qt::UTC));
    }

    QTimeZone m_zone;
};

class DefinedZone final : public Zone
{
public:
    explicit DefinedZone(ZonePtr zone) : m_zone(std::move(zone)) {}

    Instant instantOf(const icaltimetype& wall) const override
    {
        return Instant{icaltime_as_timet_with_zone(wall, m_zone.get())} * 1000;
    }

    WallSeconds wallOf(Instant instant) const override
    {
        return wallSecondsOf(
            icaltime_from_timet_with_zone(static_cast<time_t>(instant / 1000), 0, m_zone.get()));
    }

private:
    const ZonePtr m_zone;
};

/// The toolkit accepts almost any word as the description of a zone without rules.
bool isSystemZone(const QByteArray& id)
{
    return QTimeZone::isTimeZoneIdAvailable(id) ||
           QFileInfo(u"/usr/share/zoneinfo/"_s + QString::fromUtf8(id)).isFile();
}

/// Programs add prefixes to the usual name: "/example.org/2019/Europe/Berlin". Null if the system
/// knows no part of it.
QTimeZone systemZone(const QByteArray& tzid)
{
    if (tzid.contains(".."))
        return {}; // a name becomes a path
    for (qsizetype from = 0; from >= 0 && from < tzid.size();) {
        if (tzid.at(from) == '/')
            ++from;
        if (const QByteArray id = tzid.mid(from); isSystemZone(id))
            return QTimeZone(id);
        from = tzid.indexOf('/', from);
    }
    return {};
}

constexpr int maxZoneRules = 100;

/// The library calculates all changes in advance, in a call that cannot be stopped: one change per
/// second would use up all memory. Real clocks change on one day of the year, possibly given as a
/// weekday within a week, at one time.
bool changesOnceAYear(const icalrecurrencetype& rule)
{
    return rule.freq == ICAL_YEARLY_RECURRENCE && !rule.rscale && timesOfDay(rule) == 1 &&
           listed(rule.by_month) <= 1 && listed(rule.by_day) <= 1 &&
           listed(rule.by_month_day) <= 7 && listed(rule.by_year_day) <= 7 &&
           listed(rule.by_week_no) <= 1;
}

/// Whether the zone's rules can be followed; counts them.
bool isFollowable(icalcomponent* rules, int& count)
{
    bool isFollowable = true;
    forEachProperty(rules, ICAL_RRULE_PROPERTY, [&](icalproperty* property) {
        isFollowable = isFollowable && ++count <= maxZoneRules &&
                       changesOnceAYear(icalproperty_get_rrule(property));
    });
    return isFollowable;
}

/// Null if it defines nothing.
std::unique_ptr<Zone> definedZone(icalcomponent* vtimezone)
{
    ComponentPtr copy(icalcomponent_new(ICAL_VTIMEZONE_COMPONENT));
    forEachProperty(vtimezone, ICAL_ANY_PROPERTY, [&copy](icalproperty* property) {
        icalcomponent_add_property(copy.get(), icalproperty_new_clone(property));
    });
    bool hasRules = false;
    int ruleCount = 0;
    for (icalcomponent* rules = icalcomponent_get_first_component(vtimezone, ICAL_ANY_COMPONENT);
         rules; rules = icalcomponent_get_next_component(vtimezone, ICAL_ANY_COMPONENT)) {
        if (!isFollowable(rules, ruleCount))
            continue;
        icalcomponent_add_component(copy.get(), icalcomponent_new_clone(rules));
        hasRules = true;
    }
    ZonePtr zone(icaltimezone_new());
    if (!hasRules || !icaltimezone_set_component(zone.get(), copy.get()))
        return nullptr;
    static_cast<void>(copy.release()); // owned by the zone now
    return std::make_unique<DefinedZone>(std::move(zone));
}

} // namespace

WallSeconds wallSecondsOf(const icaltimetype& time)
{
    const qint64 days = QDate(time.year, time.month, time.day).toJulianDay() - epochDay;
    return days * daySeconds +
           (time.is_date ? 0 : time.hour * 3600 + time.minute * 60 + time.second);
}

icaltimetype timeOfWallSeconds(WallSeconds seconds, bool isDate)
{
    const qint64 days =
        seconds >= 0 ? seconds / daySeconds : -((daySeconds - 1 - seconds) / daySeconds);
    const int rest = static_cast<int>(seconds - days * daySeconds);
    icaltimetype time = icaltime_null_time();
    QDate::fromJulianDay(days + epochDay).getDate(&time.year, &time.month, &time.day);
    time.is_date = isDate ? 1 : 0;
    if (!isDate) {
        time.hour = rest / 3600;
        time.minute = rest / 60 % 60;
        time.second = rest % 60;
    }
    return time;
}

ZoneTable::ZoneTable(const QTimeZone& local)
    : m_local(std::make_unique<SystemZone>(local)),
      m_utc(std::make_unique<SystemZone>(QTimeZone::utc()))
{
}

ZoneTable::~ZoneTable() = default;

void ZoneTable::define(icalcomponent* vtimezone)
{
    if (icalproperty* name = icalcomponent_get_first_property(vtimezone, ICAL_TZID_PROPERTY))
        m_definitions[icalproperty_get_tzid(name)] = vtimezone;
}

const Zone& ZoneTable::zone(const QByteArray& tzid)
{
    auto known = m_zones.find(tzid);
    if (known == m_zones.end())
        known = m_zones.emplace(tzid, make(tzid)).first;
    return known->second ? *known->second : local();
}

std::unique_ptr<Zone> ZoneTable::make(const QByteArray& tzid) const
{
    if (QTimeZone zone = systemZone(tzid); zone.isValid())
        return std::make_unique<SystemZone>(std::move(zone));
    if (const auto found = m_definitions.find(tzid); found != m_definitions.end()) {
        if (auto zone = definedZone(found->second))
            return zone;
    }
    const QByteArray windows = QTimeZone::windowsIdToDefaultIanaId(tzid);
    if (windows.isEmpty())
        return nullptr;
    return std::make_unique<SystemZone>(QTimeZone(windows));
}

} // namespace lumbrix::platform::ical
