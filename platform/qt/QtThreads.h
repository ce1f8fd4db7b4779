// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The threads of QtRunLoop: starting, sleeping, waking and joining.
#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <vector>

#include "platform/RunLoop.h"

namespace lumbrix::platform
{

class QtThread;

/// Any thread. Shared with its threads, so that a Thread may be held, and even started, after the
/// run loop has been destroyed.
class QtThreads : public std::enable_shared_from_this<QtThreads>
{
public:
    ThreadPtr make(std::string name, RunLoop::ThreadBody body);
    /// Blocks until the time has passed or the shutdown has begun.
    void sleep(Seconds duration);
    /// Blocks until `isDone`, which is called under mutex(), returns true, or the shutdown has
    /// begun.
    template <class Predicate> void wait(Predicate isDone)
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_isShuttingDown || isDone(); });
    }
    /// Wakes wait() to check its predicate again.
    void notify() { m_changed.notify_all(); }
    std::mutex& mutex() { return m_mutex; }
    bool isShuttingDown() const { return m_isShuttingDown; } ///< under mutex()

    /// Cancels every thread, wakes all that sleep or wait, and joins them. Threads started later
    /// end without running. False if some have not ended after `patience`: these continue and are
    /// not joined.
    bool shutdown(Seconds patience);

private:
    friend class QtThread;
    struct Running {
        std::shared_ptr<QtThread> thread;
        std::thread handle;
    };

    void start(const std::shared_ptr<QtThread>& thread);
    void run(QtThread& thread);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::condition_variable m_shutDown;
    bool m_isShuttingDown = false;
    std::unordered_map<const QtThread*, Running> m_running;
    std::vector<std::thread> m_finished; ///< whose bodies have returned, to be joined
};

} // namespace lumbrix::platform
