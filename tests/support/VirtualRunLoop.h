// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A run loop whose clock moves only when a test says so.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/RunLoop.h"

namespace lumbrix::test
{

class VirtualThread;
class VirtualTimer;

/// Threads are real, but exactly one of them and the main thread runs at a time: a thread runs from
/// when its turn comes until it sleeps, waits for the main thread or ends. So every run of a test
/// takes the same steps. Everything due happens in the order of its time, then of its scheduling.
///
/// The clock counts microseconds; intervals are rounded to them, so that 0.05 and the slightly
/// longer 0.05f are the same time.
class VirtualRunLoop final : public platform::RunLoop
{
public:
    using Seconds = platform::Seconds;

    VirtualRunLoop();           ///< the calling thread is the main thread
    ~VirtualRunLoop() override; ///< shuts down
    VirtualRunLoop(const VirtualRunLoop&) = delete;
    VirtualRunLoop& operator=(const VirtualRunLoop&) = delete;

    // For the test; main thread. Nothing runs outside of these.

    /// Lets that much time pass, and all happen that is due by then. May be nested.
    void advance(Seconds duration);
    /// Lets all happen that is due now.
    void runUntilIdle() { advance(0); }
    /// Cancels all threads and runs each to its end; drops timers and queued actions.
    void shutdown();

    /// How long nothing will happen; null when nothing ever will.
    std::optional<Seconds> timeUntilNextEvent() const;
    /// Threads started and not ended: all, or those of one name.
    int runningThreads(std::string_view name = {}) const;

    platform::TimerPtr scheduleTimer(Seconds interval, bool repeats, Action action) override;
    void performAfterDelay(const void* target, Seconds delay, Action action) override;
    void cancelPreviousPerformRequests(const void* target) override;
    void performOnMainThread(Action action, bool waitUntilDone) override;
    platform::ThreadPtr makeThread(std::string name, ThreadBody body) override;
    /// On the main thread: the clock moves and threads run, but the main loop does not.
    void sleep(Seconds duration) override;
    Seconds now() const override;
    bool isMainThread() const override;

private:
    friend class VirtualThread;
    friend class VirtualTimer;
    using Microseconds = std::int64_t;
    /// Time, then a serial number.
    using Key = std::pair<Microseconds, std::uint64_t>;
    /// Either an action of the main loop or the turn of a thread.
    struct Item {
        std::shared_ptr<Action> action;
        const void* target = nullptr;
        VirtualTimer* timer = nullptr;
        std::shared_ptr<VirtualThread> thread; ///< without an action: whose turn it is
    };

    static Microseconds rounded(Seconds duration);
    Key enqueue(Microseconds time, Item item);
    void start(const std::shared_ptr<VirtualThread>& thread);
    void runNext(Microseconds until, bool threadsOnly);
    bool runOne(Microseconds until, bool threadsOnly);
    void fire(VirtualTimer& timer, std::shared_ptr<Action> action);
    void giveTurn(const std::shared_ptr<VirtualThread>& thread);
    void checkCaller() const;

    const std::thread::id m_mainThread = std::this_thread::get_id();
    Microseconds m_now = 0;
    std::uint64_t m_serial = 0;
    std::map<Key, Item> m_items;
    std::vector<std::shared_ptr<VirtualThread>> m_threads; ///< started and not ended
    VirtualThread* m_current = nullptr;                    ///< null = the main thread
    bool m_isShuttingDown = false;
};

} // namespace lumbrix::test
