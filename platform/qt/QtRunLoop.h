// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The run loop of the real program: Qt's event loop and real threads.
#pragma once

#include <memory>
#include <thread>

#include "platform/RunLoop.h"

namespace lumbrix::platform
{

class QtThreads;

/// Must be created after and destroyed before the QCoreApplication, on the main thread. Timers and
/// delayed calls have millisecond precision.
class QtRunLoop final : public RunLoop
{
public:
    QtRunLoop();
    ~QtRunLoop() override; ///< shuts down
    QtRunLoop(const QtRunLoop&) = delete;
    QtRunLoop& operator=(const QtRunLoop&) = delete;

    /// Ends everything: threads are cancelled, woken from sleep() and from waiting for the main
    /// thread, and joined; timers are invalidated; delayed and queued actions are dropped. Whatever
    /// is queued or started later is dropped too. Main thread.
    ///
    /// If called inside an action that a thread waits for, it releases that thread before the
    /// action has returned.
    ///
    /// False if a thread has not ended after `patience`. That thread continues and may use
    /// everything it was given, including this loop, so the program must end without destroying any
    /// of it.
    bool shutdown(Seconds patience = 10.0);

    TimerPtr scheduleTimer(Seconds interval, bool repeats, Action action) override;
    void performAfterDelay(const void* target, Seconds delay, Action action) override;
    void cancelPreviousPerformRequests(const void* target) override;
    void performOnMainThread(Action action, bool waitUntilDone) override;
    ThreadPtr makeThread(std::string name, ThreadBody body) override;
    void sleep(Seconds duration) override;
    Seconds now() const override;
    bool isMainThread() const override;

private:
    class Hub;

    const std::thread::id m_mainThread = std::this_thread::get_id();
    const std::shared_ptr<QtThreads> m_threads;
    const std::unique_ptr<Hub> m_hub;
};

} // namespace lumbrix::platform
