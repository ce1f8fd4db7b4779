// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/support/SimulatedCalendar.h"

namespace lumbrix::test
{

using platform::CalendarError;

platform::CalendarEvents SimulatedCalendarStore::events(const QDateTime& start,
                                                        const QDateTime& end,
                                                        const QStringList& calendars) const
{
    if (!m_known.start.isValid() || start < m_known.start || end > m_known.end)
        return {};
    return {m_known.calendars.error, platform::selectEvents(m_known.events, start, end, calendars)};
}

void SimulatedCalendarStore::refresh(const QDateTime& start, const QDateTime& end,
                                     std::function<void()> done)
{
    ++refreshes;
    m_runLoop.performAfterDelay(this, delay, [this, start, end, done = std::move(done)] {
        m_known = isFailing ? Known{{CalendarError::Failed, {}}, {}, start, end}
                            : Known{{CalendarError::None, allCalendars}, allEvents, start, end};
        done();
    });
}

} // namespace lumbrix::test
