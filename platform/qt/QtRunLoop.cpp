// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/qt/QtRunLoop.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QTimerEvent>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <deque>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/qt/QtThreads.h"

namespace lumbrix::platform
{

namespace
{

/// A running timer or delayed call; its id is 0 once it has ended.
struct Entry {
    int id = 0;
    bool repeats = false;
    const void* target = nullptr;
    RunLoop::Action action;
};
using EntryPtr = std::shared_ptr<Entry>;

} // namespace

/// The one QObject behind the run loop: it owns all timers, and every call on the main thread is an
/// event posted to it.
class QtRunLoop::Hub final : public QObject
{
public:
    explicit Hub(QtThreads& threads) : m_threads(threads) {}

    EntryPtr start(Seconds interval, bool repeats, const void* target, Action action);
    void stop(Entry& entry);
    void cancel(const void* target);
    void post(Action action, bool waitUntilDone);
    void dropAll();

protected:
    void customEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    struct Request {
        Action action;
        bool isDone = false; ///< guarded by m_threads.mutex()
    };

    static inline const QEvent::Type hopType = QEvent::Type(QEvent::registerEventType());

    QtThreads& m_threads;
    std::unordered_map<int, EntryPtr> m_timers;
    std::deque<std::shared_ptr<Request>> m_requests; ///< guarded by m_threads.mutex()
};

namespace
{

template <class Hub> class QtTimer final : public Timer
{
public:
    QtTimer(Hub& hub, EntryPtr entry) : m_hub(hub), m_entry(std::move(entry)) {}
    ~QtTimer() override { invalidate(); }
    bool isValid() const override { return m_entry->id != 0; }
    void invalidate() override
    {
        // A timer is valid only while its hub exists.
        if (isValid())
            m_hub.stop(*m_entry);
    }

private:
    Hub& m_hub;
    const EntryPtr m_entry;
};

} // namespace

EntryPtr QtRunLoop::Hub::start(Seconds interval, bool repeats, const void* target, Action action)
{
    auto entry = std::make_shared<Entry>();
    entry->repeats = repeats;
    entry->target = target;
    entry->action = std::move(action);
    const auto milliseconds = std::llround(std::max(interval, 0.0) * 1000.0);
    entry->id = startTimer(std::chrono::milliseconds(milliseconds), Qt::PreciseTimer);
    m_timers[entry->id] = entry;
    return entry;
}

void QtRunLoop::Hub::stop(Entry& entry)
{
    // The entry may be destroyed at the end of this function, and with it the action, whose own
    // references may stop further timers. Nothing may be accessed after that.
    const auto listed = m_timers.extract(std::exchange(entry.id, 0));
    if (listed)
        killTimer(listed.key());
}

void QtRunLoop::Hub::cancel(const void* target)
{
    std::vector<EntryPtr> entries;
    for (const auto& [id, entry] : m_timers)
        if (entry->target == target)
            entries.push_back(entry);
    for (const EntryPtr& entry : entries)
        stop(*entry);
}

void QtRunLoop::Hub::timerEvent(QTimerEvent* event)
{
    const auto found = m_timers.find(event->timerId());
    if (found == m_timers.end())
        return;
    // Keeps the entry alive, as the action may stop its own timer or drop the last reference to it.
    const EntryPtr entry = found->second;
    if (!entry->repeats)
        stop(*entry);
    entry->action();
}

void QtRunLoop::Hub::post(Action action, bool waitUntilDone)
{
    auto request = std::make_shared<Request>();
    request->action = std::move(action);
    {
        const std::lock_guard lock(m_threads.mutex());
        if (m_threads.isShuttingDown())
            return;
        m_requests.push_back(request);
        // One event per request, posted under the lock that also orders the requests. So a request
        // never waits for an earlier one that runs a nested event loop.
        QCoreApplication::postEvent(this, new QEvent(hopType));
    }
    if (waitUntilDone)
        m_threads.wait([&request] { return request->isDone; });
}

void QtRunLoop::Hub::customEvent(QEvent* /*event*/)
{
    std::shared_ptr<Request> request;
    {
        const std::lock_guard lock(m_threads.mutex());
        if (m_requests.empty())
            return;
        request = std::move(m_requests.front());
        m_requests.pop_front();
    }
    request->action();
    // Destroy what the action captured on the main thread.
    request->action = nullptr;
    {
        const std::lock_guard lock(m_threads.mutex());
        request->isDone = true;
    }
    m_threads.notify();
}

void QtRunLoop::Hub::dropAll()
{
    std::deque<std::shared_ptr<Request>> requests;
    {
        const std::lock_guard lock(m_threads.mutex());
        requests.swap(m_requests);
    }
    const auto timers = std::exchange(m_timers, {});
    for (const auto& [id, entry] : timers) {
        killTimer(id);
        entry->id = 0;
    }
}

QtRunLoop::QtRunLoop()
    : m_threads(std::make_shared<QtThreads>()), m_hub(std::make_unique<Hub>(*m_threads))
{
}

QtRunLoop::~QtRunLoop() { shutdown(); }

bool QtRunLoop::shutdown(Seconds patience)
{
    const bool haveAllEnded = m_threads->shutdown(patience);
    m_hub->dropAll();
    return haveAllEnded;
}

TimerPtr QtRunLoop::scheduleTimer(Seconds interval, bool repeats, Action action)
{
    return std::make_shared<QtTimer<Hub>>(
        *m_hub, m_hub->start(interval, repeats, nullptr, std::move(action)));
}

void QtRunLoop::performAfterDelay(const void* target, Seconds delay, Action action)
{
    m_hub->start(delay, false, target, std::move(action));
}

void QtRunLoop::cancelPreviousPerformRequests(const void* target)
{
    // Timers have no target.
    if (target)
        m_hub->cancel(target);
}

void QtRunLoop::performOnMainThread(Action action, bool waitUntilDone)
{
    if (waitUntilDone && isMainThread())
        action();
    else
        m_hub->post(std::move(action), waitUntilDone);
}

ThreadPtr QtRunLoop::makeThread(std::string name, ThreadBody body)
{
    return m_threads->make(std::move(name), std::move(body));
}

void QtRunLoop::sleep(Seconds duration) { m_threads->sleep(duration); }

Seconds QtRunLoop::now() const
{
    return std::chrono::duration<Seconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

bool QtRunLoop::isMainThread() const { return std::this_thread::get_id() == m_mainThread; }

} // namespace lumbrix::platform
