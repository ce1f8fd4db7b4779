// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The user's calendars and their events.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QColor>

#include <functional>
#include <vector>

namespace lumbrix::platform
{

struct Calendar {
    QString uid; ///< the same each time the program runs
    QString title;
    QColor color; ///< valid and opaque

    bool operator==(const Calendar& other) const = default;
};

/// One occurrence; a recurring event has several.
struct CalendarEvent {
    QString calendar; ///< uid
    QString title;    ///< any text
    /// In the user's time zone. An all-day event ends at the midnight after its last day.
    QDateTime start;
    QDateTime end; ///< not before the start

    bool operator==(const CalendarEvent& other) const = default;
};

enum class CalendarError {
    None,
    NotReady, ///< not read yet: refresh
    Failed,   ///< some calendars could not be read; the result lacks their events
};

struct CalendarList {
    CalendarError error = CalendarError::NotReady;
    std::vector<Calendar> calendars;
};

struct CalendarEvents {
    CalendarError error = CalendarError::NotReady;
    std::vector<CalendarEvent> events;
};

/// Implements CalendarStore::events() on a list of all events.
std::vector<CalendarEvent> selectEvents(const std::vector<CalendarEvent>& all,
                                        const QDateTime& start, const QDateTime& end,
                                        const QStringList& calendars);

/// Main thread. Reading can take any time, depending on disks and other programs, so only refresh()
/// reads. The queries return the results of its last run at once.
class CalendarStore
{
public:
    virtual ~CalendarStore() = default;

    /// All calendars, in a stable order.
    virtual CalendarList calendars() const = 0;
    /// The events of these calendars (uids) that overlap the interval, sorted by start, then in the
    /// order of the calendars. Events that end at its start or begin at its end are not included.
    /// NotReady for times that have not been refreshed.
    virtual CalendarEvents events(const QDateTime& start, const QDateTime& end,
                                  const QStringList& calendars) const = 0;

    /// Reads what has changed, and the events between the two times, which are in the user's time
    /// zone. `done` is always called, in a later pass of the loop, unless the program ends first.
    virtual void refresh(const QDateTime& start, const QDateTime& end,
                         std::function<void()> done) = 0;
};

} // namespace lumbrix::platform
