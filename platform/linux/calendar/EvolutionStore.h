// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The calendars of Evolution Data Server, over D-Bus, without ever waiting for it.
#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <functional>
#include <memory>
#include <vector>

#include "platform/RunLoop.h"
#include "platform/linux/calendar/EvolutionSource.h"
#include "platform/linux/calendar/WallTime.h"

namespace lumbrix::platform
{

/// What the server reports about one calendar: iCalendar texts of the events that may happen
/// between the times asked for, with all exceptions of those that recur.
struct EvolutionCalendar {
    EvolutionSource source;
    QByteArray text;
};

struct EvolutionAnswer {
    bool isRunning = false; ///< false: nothing was asked, as nobody uses the server
    bool isComplete = true; ///< false when a calendar could not be read, or not in time
    std::vector<EvolutionCalendar> calendars; ///< by name, those that could not be read included
};

/// Main thread.
class EvolutionStore final : public QObject
{
    Q_OBJECT

public:
    EvolutionStore(RunLoop& runLoop, const QDBusConnection& bus);
    ~EvolutionStore() override;

    using Done = std::function<void(const EvolutionAnswer&)>;

    /// Asks for all calendars. The server is not started for it: who has no program that uses it
    /// has nothing in it. `done` is called in a later pass of the loop, after a few seconds at the
    /// latest. One question at a time.
    void fetch(ical::Instant start, ical::Instant end, Done done);

private:
    struct Job;
    using JobPtr = std::shared_ptr<Job>;
    using Reply = std::function<void(const QDBusMessage&)>;

    void call(const JobPtr& job, const QDBusMessage& message, Reply reply);
    void listCalendars(const JobPtr& job);
    void openCalendar(const JobPtr& job, std::size_t index);
    void readCalendar(const JobPtr& job, std::size_t index, const QString& service,
                      const QString& path);
    void readObjects(const JobPtr& job, std::size_t index, const QString& service,
                     const QString& path, const QStringList& objects);
    void calendarDone(const JobPtr& job, bool isRead);
    void finish(const JobPtr& job);

    RunLoop& m_runLoop;
    QDBusConnection m_bus;
};

} // namespace lumbrix::platform
