// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/CalendarStore.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace lumbrix::platform
{
namespace
{

bool happensBetween(const CalendarEvent& event, const QDateTime& start, const QDateTime& end)
{
    if (event.start >= end)
        return false;
    // An event without duration happens at its start.
    return event.end > start || (event.start == event.end && event.start == start);
}

} // namespace

std::vector<CalendarEvent> selectEvents(const std::vector<CalendarEvent>& all,
                                        const QDateTime& start, const QDateTime& end,
                                        const QStringList& calendars)
{
    std::vector<CalendarEvent> selected;
    std::copy_if(all.begin(), all.end(), std::back_inserter(selected),
                 [&](const CalendarEvent& event) {
                     return calendars.contains(event.calendar) && happensBetween(event, start, end);
                 });
    std::stable_sort(selected.begin(), selected.end(),
                     [&calendars](const CalendarEvent& a, const CalendarEvent& b) {
                         return std::pair(a.start, calendars.indexOf(a.calendar)) <
                                std::pair(b.start, calendars.indexOf(b.calendar));
                     });
    return selected;
}

} // namespace lumbrix::platform
