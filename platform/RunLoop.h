// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The port for all time: timers, delayed calls, calls on the main thread, threads and sleep. The
// program uses an implementation on Qt's event loop; the tests use one with a virtual clock.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace lumbrix::platform
{

using Seconds = double;

/// A timer of the main run loop. Main thread only. Dropping the last reference invalidates it.
class Timer
{
public:
    virtual ~Timer() = default;
    /// A one-shot timer stops being valid just before its action runs.
    virtual bool isValid() const = 0;
    /// The action does not run again, even if it was already due. Does nothing if not valid.
    virtual void invalidate() = 0;
};
using TimerPtr = std::shared_ptr<Timer>;

/// A thread of the program. Cancellation is cooperative: the body must check isCancelled().
class Thread
{
public:
    virtual ~Thread() = default;
    /// Starts the body; call it once. Any thread.
    virtual void start() = 0;
    /// Asks the body to end. Any thread; does no harm before the start and after the end.
    virtual void cancel() = 0;
    virtual bool isCancelled() const = 0;
    virtual bool isFinished() const = 0;
};
using ThreadPtr = std::shared_ptr<Thread>;

class RunLoop
{
public:
    using Action = std::function<void()>;
    /// The body gets its own thread, to check isCancelled().
    using ThreadBody = std::function<void(const Thread& self)>;

    virtual ~RunLoop() = default;

    /// Main thread. The caller must keep the timer; 0.0 seconds means the next pass of the loop.
    [[nodiscard]] virtual TimerPtr scheduleTimer(Seconds interval, bool repeats, Action action) = 0;

    /// Runs the action on the main loop after `delay`, unless it is cancelled by its target first.
    /// The target is only compared, never dereferenced. Main thread.
    virtual void performAfterDelay(const void* target, Seconds delay, Action action) = 0;
    virtual void cancelPreviousPerformRequests(const void* target) = 0;

    /// Runs the action on the main thread. Any thread. Without waiting it is queued, even if called
    /// on the main thread. With waiting it runs at once if called on the main thread; on another
    /// thread the call returns when it has run, or when the loop is shutting down (it may then not
    /// have run).
    virtual void performOnMainThread(Action action, bool waitUntilDone) = 0;

    /// Creates a thread that is not started; the loop keeps it alive while it runs. Any thread.
    [[nodiscard]] virtual ThreadPtr makeThread(std::string name, ThreadBody body) = 0;
    /// makeThread() and start().
    ThreadPtr detachThread(std::string name, ThreadBody body)
    {
        ThreadPtr thread = makeThread(std::move(name), std::move(body));
        thread->start();
        return thread;
    }

    /// Blocks the calling thread. On the main thread no timer fires meanwhile. Returns early only
    /// if the loop is shutting down; every thread is then cancelled.
    virtual void sleep(Seconds duration) = 0;

    /// Monotonic. Any thread.
    virtual Seconds now() const = 0;
    virtual bool isMainThread() const = 0;
};

} // namespace lumbrix::platform
