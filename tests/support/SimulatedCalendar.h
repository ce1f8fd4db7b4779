// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Calendars and a clock that say what a test wants.
#pragma once

#include <QtCore/QTimeZone>

#include "platform/CalendarStore.h"
#include "platform/RunLoop.h"
#include "platform/WallClock.h"

namespace lumbrix::test
{

/// Goes on as the run loop does. Starts on Wednesday, 11 March 2026, at nine in Berlin.
class SimulatedWallClock final : public platform::WallClock
{
public:
    explicit SimulatedWallClock(platform::RunLoop& runLoop) : m_runLoop(runLoop)
    {
        set(QDateTime(QDate(2026, 3, 11), QTime(9, 0), QTimeZone("Europe/Berlin")));
    }

    QDateTime now() const override
    {
        return m_set.addMSecs(static_cast<qint64>((m_runLoop.now() - m_setAt) * 1000));
    }

    /// With its time zone. Main thread, while no thread asks.
    void set(const QDateTime& time)
    {
        m_set = time;
        m_setAt = m_runLoop.now();
    }

private:
    platform::RunLoop& m_runLoop;
    QDateTime m_set;
    platform::Seconds m_setAt = 0;
};

/// What it holds is known to the program from when a refresh is done. Without calendars at first.
class SimulatedCalendarStore final : public platform::CalendarStore
{
public:
    explicit SimulatedCalendarStore(platform::RunLoop& runLoop) : m_runLoop(runLoop) {}

    platform::CalendarList calendars() const override { return m_known.calendars; }
    platform::CalendarEvents events(const QDateTime& start, const QDateTime& end,
                                    const QStringList& calendars) const override
    {
        if (!m_known.start.isValid() || start < m_known.start || end > m_known.end)
            return {};
        return {m_known.calendars.error,
                platform::selectEvents(m_known.events, start, end, calendars)};
    }
    void refresh(const QDateTime& start, const QDateTime& end, std::function<void()> done) override
    {
        using platform::CalendarError;
        ++refreshes;
        m_runLoop.performAfterDelay(this, delay, [this, start, end, done = std::move(done)] {
            m_known = isFailing ? Known{{CalendarError::Failed, {}}, {}, start, end}
                                : Known{{CalendarError::None, allCalendars}, allEvents, start, end};
            done();
        });
    }

    // For tests.
    std::vector<platform::Calendar> allCalendars;
    std::vector<platform::CalendarEvent> allEvents;
    platform::Seconds delay = 0; ///< how long a refresh takes
    bool isFailing = false;      ///< a refresh finds nothing and says that it failed
    int refreshes = 0;

private:
    struct Known {
        platform::CalendarList calendars;
        std::vector<platform::CalendarEvent> events;
        QDateTime start;
        QDateTime end;
    };

    platform::RunLoop& m_runLoop;
    Known m_known;
};

} // namespace lumbrix::test
