// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The calendars of a Linux desktop: iCalendar files, and Evolution Data Server's where it runs.
#pragma once

#include <memory>
#include <vector>

#include "platform/CalendarStore.h"
#include "platform/MainThreadGuard.h"
#include "platform/RunLoop.h"
#include "platform/linux/calendar/EvolutionStore.h"
#include "platform/linux/calendar/IcalFolder.h"

namespace lumbrix::platform
{

/// Files are read on a thread of its own, one refresh after the other.
class LinuxCalendarStore final : public CalendarStore
{
public:
    LinuxCalendarStore(RunLoop& runLoop, const QDBusConnection& bus, IcalFolderPaths paths);
    ~LinuxCalendarStore() override;

    CalendarList calendars() const override { return m_known.calendars; }
    CalendarEvents events(const QDateTime& start, const QDateTime& end,
                          const QStringList& calendars) const override;
    void refresh(const QDateTime& start, const QDateTime& end, std::function<void()> done) override;

private:
    struct Request {
        QDateTime start;
        QDateTime end;
        std::function<void()> done;
    };
    struct Known {
        QDateTime start;
        QDateTime end;
        CalendarList calendars;
        std::vector<CalendarEvent> events;
    };

    void start();
    void read(const EvolutionAnswer& evolution);
    static Known readAll(IcalFolder& folder, const EvolutionAnswer& evolution,
                         const IcalFolder::Question& question);
    void finish(const Known& known);

    RunLoop& m_runLoop;
    EvolutionStore m_evolution;
    const std::shared_ptr<IcalFolder> m_folder; ///< of the thread while one runs
    std::vector<Request> m_requests;            ///< in their order; the first ones are served now
    std::size_t m_served = 0;                   ///< how many of them; 0 = nothing is read
    Known m_known;
    const MainThreadGuard m_guard;
};

} // namespace lumbrix::platform
