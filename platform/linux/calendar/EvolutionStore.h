// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The calendars of Evolution Data Server, over D-Bus. Never waits for it.
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

/// What the server reports about one calendar: iCalendar texts of the events that may occur in the
/// requested interval, with all exceptions of recurring ones.
struct EvolutionCalendar {
    EvolutionSource source;
    QByteArray text;
};

struct EvolutionAnswer {
    bool isRunning = false; ///< false: the server is not in use, so nothing was requested
    bool isComplete = true; ///< false if a calendar could not be read, or not in time
    std::vector<EvolutionCalendar> calendars; ///< by name, including those that could not be read
};

/// Main thread.
class EvolutionStore final : public QObject
{
    Q_OBJECT

public:
    EvolutionStore(RunLoop& runLoop, const QDBusConnection& bus);
    ~EvolutionStore() override;

    using Done = std::function<void(const EvolutionAnswer&)>;

    /// Requests all calendars. Does not start the server: without a program that uses it, it has no
    /// calendars. `done` is called in a later pass of the loop, after a few seconds at the latest.
    /// One request at a time.
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
