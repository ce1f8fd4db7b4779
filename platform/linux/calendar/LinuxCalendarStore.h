// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The calendars of a Linux desktop: iCalendar files, and those of Evolution Data Server if it runs.
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

/// Files are read on a separate thread, one refresh at a time.
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
    const std::shared_ptr<IcalFolder> m_folder; ///< set while a thread runs
    std::vector<Request> m_requests;            ///< in order; the first ones are being served
    std::size_t m_served = 0;                   ///< how many of them; 0 = nothing is being read
    Known m_known;
    const MainThreadGuard m_guard;
};

} // namespace lumbrix::platform
