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
    // Under the lock, so that the thread finds its own handle listed when it ends.
    Running& running = m_running[thread.get()];
    running.thread = thread;
    running.handle = std::thread([this, raw = thread.get()] { run(*raw); });
}

void QtThreads::run(QtThread& thread)
{
    thread.runBody();
    // Each thread joins those that ended before it, so that the handles of short-lived threads do
    // not accumulate and the main thread is not woken for them.
    std::vector<std::thread> earlier;
    {
        const std::lock_guard lock(m_mutex);
        earlier.swap(m_finished);
    }
    for (std::thread& handle : earlier)
        handle.join();
    Running self;
    const std::lock_guard lock(m_mutex);
    auto listed = m_running.extract(&thread);
    if (listed.mapped().handle.joinable())
        m_finished.push_back(std::move(listed.mapped().handle));
    self.thread = std::move(listed.mapped().thread);
    m_changed.notify_all();
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
    std::vector<std::thread> finished;
    bool haveAllEnded = false;
    {
        std::unique_lock lock(m_mutex);
        m_isShuttingDown = true;
        for (auto& [key, running] : m_running)
            running.thread->cancel();
        m_shutDown.notify_all();
        m_changed.notify_all();
        const auto isAwaited = [](const auto& entry) { return entry.second.handle.joinable(); };
        m_changed.wait_for(lock, std::chrono::duration<Seconds>(patience),
                           [&] { return std::ranges::none_of(m_running, isAwaited); });
        // A library call may run for hours and cannot be cancelled.
        for (auto& [key, running] : m_running)
            if (running.handle.joinable())
                running.handle.detach();
        haveAllEnded = m_running.empty();
        finished.swap(m_finished);
    }
    for (std::thread& handle : finished)
        handle.join();
    return haveAllEnded;
}

} // namespace lumbrix::platform
