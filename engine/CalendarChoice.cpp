// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/CalendarChoice.h"

#include <algorithm>

#include "platform/Desktop.h"
#include "platform/UserDefaults.h"

namespace lumbrix::CalendarChoice
{

using platform::Calendar;

QStringList disabledUIDs()
{
    return platform::desktop().userDefaults.arrayForKey(u"calendars"_qs).value_or(QStringList());
}

std::vector<Calendar> getDisabledCalendars()
{
    const std::vector<Calendar> known = platform::desktop().calendarStore.calendars().calendars;
    std::vector<Calendar> disabled;
    for (const QString& uid : disabledUIDs()) {
        if (const auto calendar = std::ranges::find(known, uid, &Calendar::uid);
            calendar != known.end())
            disabled.push_back(*calendar);
    }
    return disabled;
}

std::vector<Calendar> getAllowedCalendars()
{
    std::vector<Calendar> calendars = platform::desktop().calendarStore.calendars().calendars;
    for (const Calendar& disabled : getDisabledCalendars())
        std::erase(calendars, disabled);
    return calendars;
}

void setDisabledUIDs(const QStringList& uids)
{
    platform::UserDefaults& defaults = platform::desktop().userDefaults;
    defaults.setArray(uids, u"calendars"_qs);
    defaults.synchronize();
}

} // namespace lumbrix::CalendarChoice
