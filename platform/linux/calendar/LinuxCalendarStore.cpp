// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/LinuxCalendarStore.h"

#include <QtCore/QBuffer>

#include <algorithm>
#include <utility>

#include "platform/Log.h"
#include "platform/linux/calendar/CalendarColor.h"

namespace lumbrix::platform
{
namespace
{

/// Enough for more calendars than anyone has, on a slow disk.
constexpr Seconds readTimeout = 10;

void append(std::vector<CalendarEvent>& events, const ReadCalendar& calendar,
            const QTimeZone& local)
{
    for (const ical::Occurrence& occurrence : calendar.occurrences)
        events.push_back({calendar.calendar.uid, occurrence.title,
                          QDateTime::fromMSecsSinceEpoch(occurrence.start, local),
                          QDateTime::fromMSecsSinceEpoch(occurrence.end, local)});
}

} // namespace

LinuxCalendarStore::LinuxCalendarStore(RunLoop& runLoop, const QDBusConnection& bus,
                                       IcalFolderPaths paths)
    : m_runLoop(runLoop), m_evolution(runLoop, bus),
      m_folder(std::make_shared<IcalFolder>(std::move(paths)))
{
}

LinuxCalendarStore::~LinuxCalendarStore() = default;

CalendarEvents LinuxCalendarStore::events(const QDateTime& start, const QDateTime& end,
                                          const QStringList& calendars) const
{
    if (!m_known.start.isValid() || start < m_known.start || end > m_known.end)
        return {};
    return {m_known.calendars.error, selectEvents(m_known.events, start, end, calendars)};
}

void LinuxCalendarStore::refresh(const QDateTime& start, const QDateTime& end,
                                 std::function<void()> done)
{
    m_requests.push_back({start, end, std::move(done)});
    if (m_served == 0)
        this->start();
}

/// Serves the first request, and the others for the same interval.
void LinuxCalendarStore::start()
{
    const Request& first = m_requests.front();
    const auto other = std::find_if(m_requests.begin(), m_requests.end(), [&](const Request& next) {
        return next.start != first.start || next.end != first.end ||
               next.start.timeZone() != first.start.timeZone();
    });
    m_served = static_cast<std::size_t>(other - m_requests.begin());
    m_evolution.fetch(first.start.toMSecsSinceEpoch(), first.end.toMSecsSinceEpoch(),
                      [this](const EvolutionAnswer& answer) { read(answer); });
}

void LinuxCalendarStore::read(const EvolutionAnswer& evolution)
{
    const Request& first = m_requests.front();
    const auto finish = m_guard.ifAlive([this](const Known& known) { this->finish(known); });
    m_runLoop.detachThread("calendar", [&runLoop = m_runLoop, finish, folder = m_folder, evolution,
                                        start = first.start, end = first.end](const Thread& self) {
        const Seconds deadline = runLoop.now() + readTimeout;
        Known known = readAll(*folder, evolution,
                              {{start.toMSecsSinceEpoch(), end.toMSecsSinceEpoch()},
                               start.timeZone(),
                               evolution.calendars.empty(),
                               [&] { return self.isCancelled() || runLoop.now() > deadline; }});
        known.start = start;
        known.end = end;
        runLoop.performOnMainThread([finish, known = std::move(known)] { finish(known); }, false);
    });
}

LinuxCalendarStore::Known LinuxCalendarStore::readAll(IcalFolder& folder,
                                                      const EvolutionAnswer& evolution,
                                                      const IcalFolder::Question& question)
{
    IcalFolder::Answer answer = folder.read(question);
    bool isComplete = answer.isComplete && evolution.isComplete;
    for (const EvolutionCalendar& calendar : evolution.calendars) {
        const EvolutionSource& source = calendar.source;
        QByteArray text = calendar.text;
        QBuffer buffer(&text);
        buffer.open(QIODevice::ReadOnly);
        ical::Contents contents =
            ical::readCalendar(buffer, question.window, question.local, question.stop);
        isComplete = isComplete && contents.isComplete;
        answer.calendars.push_back(
            {{source.uid, source.name,
              source.color.isValid() ? source.color : colorForUID(source.uid)},
             std::move(contents.occurrences)});
    }
    qCDebug(log::calendar, "%zu calendars were read%s", answer.calendars.size(),
            isComplete ? "" : ", not all of them to their end");
    Known known;
    known.calendars.error = isComplete ? CalendarError::None : CalendarError::Failed;
    for (const ReadCalendar& calendar : answer.calendars) {
        known.calendars.calendars.push_back(calendar.calendar);
        append(known.events, calendar, question.local);
        qCDebug(log::calendar, "a calendar with %zu events%s", calendar.occurrences.size(),
                qUtf8Printable(log::title(calendar.calendar.title)));
    }
    return known;
}

void LinuxCalendarStore::finish(const Known& known)
{
    m_known = known;
    const auto end = m_requests.begin() + static_cast<std::ptrdiff_t>(m_served);
    const std::vector<Request> served(m_requests.begin(), end);
    m_requests.erase(m_requests.begin(), end);
    m_served = 0;
    if (!m_requests.empty())
        start();
    for (const Request& request : served)
        request.done();
}

} // namespace lumbrix::platform
