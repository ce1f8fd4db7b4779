// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/qt/QtThreads.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <utility>

#include "platform/qt/ThreadName.h"

namespace lumbrix::platform
{
namespace
{

/// Longer than a cursor's blinking takes.
constexpr std::chrono::seconds keptFor{1};

} // namespace

class QtThread final : public Thread, public std::enable_shared_from_this<QtThread>
{
public:
    QtThread(std::shared_ptr<QtThreads> threads, std::string name, RunLoop::ThreadBody body)
        : m_threads(std::move(threads)), m_name(std::move(name)), m_body(std::move(body))
    {
    }

    void start() override
    {
        if (!m_isStarted.exchange(true))
            m_threads->start(shared_from_this());
    }
    void cancel() override { m_isCancelled = true; }
    bool isCancelled() const override { return m_isCancelled; }
    bool isFinished() const override { return m_isFinished; }

    void runBody()
    {
        nameCurrentThread(m_name);
        m_body(*this);
        finish();
    }
    /// Destroys what the body captured, as the Thread object may be kept long after the thread has
    /// ended.
    void finish()
    {
        m_body = nullptr;
        m_isFinished = true;
    }

private:
    const std::shared_ptr<QtThreads> m_threads;
    const std::string m_name;
    RunLoop::ThreadBody m_body;
    std::atomic_bool m_isStarted{false};
    std::atomic_bool m_isCancelled{false};
    std::atomic_bool m_isFinished{false};
};

ThreadPtr QtThreads::make(std::string name, RunLoop::ThreadBody body)
{
    return std::make_shared<QtThread>(shared_from_this(), std::move(name), std::move(body));
}

void QtThreads::start(const std::shared_ptr<QtThread>& thread)
{
    std::unique_lock lock(m_mutex);
    if (m_isShuttingDown) {
        lock.unlock();
        thread->cancel();
        thread->finish();
        return;
    }
    const auto idle = std::ranges::find(m_workers, nullptr, &Worker::thread);
    if (idle != m_workers.end()) {
        idle->thread = thread;
        idle->arrived.notify_one();
        return;
    }
    const auto self = m_workers.emplace(m_workers.end());
    self->thread = thread;
    // Under the lock, so that the thread finds its own handle listed.
    self->handle = std::thread([keep = shared_from_this(), self] { keep->work(self); });
}

void QtThreads::work(Workers::iterator self)
{
    std::unique_lock lock(m_mutex);
    while (self->thread) {
        std::shared_ptr<QtThread> thread = self->thread;
        lock.unlock();
        thread->runBody();
        lock.lock();
        self->thread = nullptr;
        m_changed.notify_all();
        lock.unlock();
        thread = nullptr; // may be the last that refers to it
        lock.lock();
        self->arrived.wait_for(lock, keptFor, [&] { return self->thread || m_isShuttingDown; });
    }
    // Each thread joins those that ended before it, so that the handles of those do not accumulate
    // and the main thread is not woken for them.
    Workers earlier;
    earlier.swap(m_ended);
    m_ended.splice(m_ended.end(), m_workers, self);
    m_changed.notify_all();
    lock.unlock();
    joinAll(earlier);
}

void QtThreads::sleep(Seconds duration)
{
    const auto until = std::chrono::steady_clock::now() +
                       std::chrono::duration_cast<std::chrono::steady_clock::duration>(
                           std::chrono::duration<Seconds>(std::max(duration, 0.0)));
    std::unique_lock lock(m_mutex);
    m_shutDown.wait_until(lock, until, [this] { return m_isShuttingDown; });
}

bool QtThreads::shutdown(Seconds patience)
{
    Workers ended;
    bool haveAllEnded = false;
    {
        std::unique_lock lock(m_mutex);
        m_isShuttingDown = true;
        for (Worker& worker : m_workers) {
            if (worker.thread)
                worker.thread->cancel();
            worker.arrived.notify_one();
        }
        m_shutDown.notify_all();
        m_changed.notify_all();
        const auto isAwaited = [](const Worker& worker) { return worker.handle.joinable(); };
        m_changed.wait_for(lock, std::chrono::duration<Seconds>(patience),
                           [&] { return std::ranges::none_of(m_workers, isAwaited); });
        // A library call may run for hours and cannot be cancelled.
        for (Worker& worker : m_workers)
            if (worker.handle.joinable())
                worker.handle.detach();
        haveAllEnded = m_workers.empty();
        ended.swap(m_ended);
    }
    joinAll(ended);
    return haveAllEnded;
}

void QtThreads::joinAll(Workers& workers)
{
    for (Worker& worker : workers)
        if (worker.handle.joinable()) // not given up by the shutdown
            worker.handle.join();
}

} // namespace lumbrix::platform
