// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The user's calendars and what is in them.
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

/// One occurrence: a recurring event gives one of these for each.
struct CalendarEvent {
    QString calendar; ///< uid
    QString title;    ///< any text
    /// In the user's time zone. What lasts whole days ends at the midnight after the last of them.
    QDateTime start;
    QDateTime end; ///< not before the start

    bool operator==(const CalendarEvent& other) const = default;
};

enum class CalendarError {
    None,
    NotReady, ///< not read yet: refresh
    Failed,   ///< some calendars could not be read; what is given is without them
};

struct CalendarList {
    CalendarError error = CalendarError::NotReady;
    std::vector<Calendar> calendars;
};

struct CalendarEvents {
    CalendarError error = CalendarError::NotReady;
    std::vector<CalendarEvent> events;
};

/// The answer to CalendarStore::events(), of all the events there are.
std::vector<CalendarEvent> selectEvents(const std::vector<CalendarEvent>& all,
                                        const QDateTime& start, const QDateTime& end,
                                        const QStringList& calendars);

/// Main thread. Reading takes as long as disks and other programs like, so only refresh() reads;
/// the questions are answered with what it brought last, at once.
class CalendarStore
{
public:
    virtual ~CalendarStore() = default;

    /// Every calendar, in an order that stays.
    virtual CalendarList calendars() const = 0;
    /// What of these calendars (uids) happens between the two times, if only in part: by start,
    /// then in the order of the calendars. What ends when the time begins is over; what starts when
    /// it ends is not in it. NotReady for times that were not refreshed.
    virtual CalendarEvents events(const QDateTime& start, const QDateTime& end,
                                  const QStringList& calendars) const = 0;

    /// Reads what has changed, and the events between the two times, which are in the user's zone.
    /// `done` is called in a later pass of the loop, always, unless the program ends before.
    virtual void refresh(const QDateTime& start, const QDateTime& end,
                         std::function<void()> done) = 0;
};

} // namespace lumbrix::platform
