// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The threads of QtRunLoop: starting, sleeping, waking and joining.
#pragma once

#include <condition_variable>
#include <list>
#include <memory>
#include <mutex>
#include <thread>

#include "platform/RunLoop.h"

namespace lumbrix::platform
{

class QtThread;

/// A thread whose body has returned is kept for a moment, as starting one takes longer than most of
/// what is done on it.
///
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
    /// A thread of the system, which runs one body after the other.
    struct Worker {
        std::shared_ptr<QtThread> thread; ///< whose body it runs, or is about to; null: it waits
        std::condition_variable arrived;
        std::thread handle;
    };
    using Workers = std::list<Worker>;

    void start(const std::shared_ptr<QtThread>& thread);
    void work(Workers::iterator self);
    static void joinAll(Workers& workers);

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::condition_variable m_shutDown;
    bool m_isShuttingDown = false;
    Workers m_workers;
    Workers m_ended; ///< to be joined
};

} // namespace lumbrix::platform
