// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/CalendarChoice.h"
#include "platform/StringLiterals.h"

#include <algorithm>

namespace lumbrix::CalendarChoice
{

using platform::Calendar;

QStringList disabledUIDs(const platform::UserDefaults& defaults)
{
    return defaults.arrayForKey(u"calendars"_s).value_or(QStringList());
}

std::vector<Calendar> getDisabledCalendars(const platform::Desktop& ports)
{
    const std::vector<Calendar> known = ports.calendarStore.calendars().calendars;
    std::vector<Calendar> disabled;
    for (const QString& uid : disabledUIDs(ports.userDefaults))
        if (const auto calendar = std::ranges::find(known, uid, &Calendar::uid);
            calendar != known.end())
            disabled.push_back(*calendar);
    return disabled;
}

std::vector<Calendar> getAllowedCalendars(const platform::Desktop& ports)
{
    std::vector<Calendar> calendars = ports.calendarStore.calendars().calendars;
    for (const Calendar& disabled : getDisabledCalendars(ports))
        std::erase(calendars, disabled);
    return calendars;
}

void setDisabledUIDs(platform::UserDefaults& defaults, const QStringList& uids)
{
    defaults.setArray(uids, u"calendars"_s);
    defaults.synchronize();
}

} // namespace lumbrix::CalendarChoice
