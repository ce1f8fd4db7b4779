// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/support/VirtualRunLoop.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <semaphore>
#include <string>

namespace lumbrix::test
{

using platform::ThreadPtr;
using platform::TimerPtr;

namespace
{

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "VirtualRunLoop: %s\n", what);
    std::abort();
}

/// More steps than this at one instant are an endless loop.
constexpr int maxStepsAtOnce = 1'000'000;

} // namespace

class VirtualThread final : public platform::Thread,
                            public std::enable_shared_from_this<VirtualThread>
{
public:
    VirtualThread(VirtualRunLoop& loop, std::string name, VirtualRunLoop::ThreadBody body)
        : m_loop(loop), m_name(std::move(name)), m_body(std::move(body))
    {
    }

    void start() override
    {
        if (!std::exchange(m_isStarted, true))
            m_loop.start(shared_from_this());
    }
    void cancel() override { m_isCancelled = true; }
    bool isCancelled() const override { return m_isCancelled; }
    bool isFinished() const override { return m_isFinished; }

    const std::string& name() const { return m_name; }

    /// Lets the thread run until it gives the turn back. Main thread.
    void run()
    {
        if (!m_handle.joinable()) {
            m_handle = std::thread([this] {
                m_turn.acquire();
                m_body(*this);
                finish();
                m_back.release();
            });
        }
        m_turn.release();
        m_back.acquire();
        if (m_isFinished)
            m_handle.join();
    }
    /// Gives the turn back until the next one. The thread itself.
    void pause()
    {
        m_back.release();
        m_turn.acquire();
    }
    void finish()
    {
        m_body = nullptr;
        m_isFinished = true;
    }
    bool hasBegun() const { return m_handle.joinable(); }

private:
    VirtualRunLoop& m_loop;
    const std::string m_name;
    VirtualRunLoop::ThreadBody m_body;
    std::thread m_handle;
    std::binary_semaphore m_turn{0}; ///< passed on by the one that may run, as is the next
    std::binary_semaphore m_back{0};
    bool m_isStarted = false;
    std::atomic_bool m_isCancelled{false};
    std::atomic_bool m_isFinished{false};
};

class VirtualTimer final : public platform::Timer
{
public:
    explicit VirtualTimer(VirtualRunLoop& loop, VirtualRunLoop::Microseconds interval)
        : m_loop(loop), m_interval(interval)
    {
    }
    ~VirtualTimer() override { invalidate(); }
    bool isValid() const override { return m_key.has_value(); }
    void invalidate() override
    {
        // A valid timer is one of a loop that still exists.
        if (const auto key = std::exchange(m_key, std::nullopt))
            m_loop.m_items.extract(*key);
    }

private:
    friend class VirtualRunLoop;
    VirtualRunLoop& m_loop;
    const VirtualRunLoop::Microseconds m_interval; ///< 0 = fires once
    std::optional<VirtualRunLoop::Key> m_key;
};

VirtualRunLoop::VirtualRunLoop() = default;

VirtualRunLoop::~VirtualRunLoop() { shutdown(); }

VirtualRunLoop::Microseconds VirtualRunLoop::rounded(Seconds duration)
{
    return std::llround(std::max(duration, 0.0) * 1e6);
}

VirtualRunLoop::Key VirtualRunLoop::enqueue(Microseconds time, Item item)
{
    const Key key{time, ++m_serial};
    m_items.emplace(key, std::move(item));
    return key;
}

void VirtualRunLoop::advance(Seconds duration)
{
    if (!isMainThread())
        fail("advance() off the main thread");
    runNext(m_now + rounded(duration), false);
}

void VirtualRunLoop::runNext(Microseconds until, bool threadsOnly)
{
    Microseconds instant = m_now;
    int steps = 0;
    // An action that sleeps may take the clock past the end; what came due meanwhile is not left
    // over.
    while (runOne(threadsOnly ? until : std::max(until, m_now), threadsOnly)) {
        steps = std::exchange(instant, m_now) == m_now ? steps + 1 : 0;
        if (steps > maxStepsAtOnce)
            fail("time stands still");
    }
    m_now = std::max(m_now, until);
}

bool VirtualRunLoop::runOne(Microseconds until, bool threadsOnly)
{
    if (m_isShuttingDown)
        return false;
    const auto next = std::find_if(m_items.begin(), m_items.end(), [&](const auto& entry) {
        return !threadsOnly || !entry.second.action;
    });
    if (next == m_items.end() || next->first.first > until)
        return false;
    m_now = std::max(m_now, next->first.first);
    auto taken = m_items.extract(next);
    Item& item = taken.mapped();
    if (item.timer) {
        fire(*item.timer, std::move(item.action));
    } else if (item.action) {
        (*item.action)();
        item.action = nullptr;
        if (item.thread && !m_isShuttingDown)
            enqueue(m_now, Item{nullptr, nullptr, nullptr, item.thread});
    } else {
        giveTurn(item.thread);
    }
    return true;
}

void VirtualRunLoop::fire(VirtualTimer& timer, std::shared_ptr<Action> action)
{
    const Microseconds due = timer.m_key->first;
    timer.m_key.reset();
    if (timer.m_interval > 0) {
        // In phase: the firings that a late one has missed are left out.
        const Microseconds missed = (m_now - due) / timer.m_interval;
        timer.m_key =
            enqueue(due + (missed + 1) * timer.m_interval, Item{action, nullptr, &timer, nullptr});
    }
    (*action)(); // may destroy the timer
}

void VirtualRunLoop::giveTurn(const std::shared_ptr<VirtualThread>& thread)
{
    VirtualThread* const previous = std::exchange(m_current, thread.get());
    thread->run();
    m_current = previous;
    if (thread->isFinished())
        std::erase(m_threads, thread);
}

void VirtualRunLoop::start(const std::shared_ptr<VirtualThread>& thread)
{
    checkCaller();
    if (m_isShuttingDown) {
        thread->cancel();
        thread->finish();
        return;
    }
    m_threads.push_back(thread);
    enqueue(m_now, Item{nullptr, nullptr, nullptr, thread});
}

void VirtualRunLoop::shutdown()
{
    m_isShuttingDown = true;
    for (const auto& thread : m_threads)
        thread->cancel();
    while (!m_threads.empty()) {
        const auto thread = m_threads.front();
        if (thread->hasBegun()) {
            giveTurn(thread);
        } else {
            std::erase(m_threads, thread);
            thread->finish();
        }
    }
    const auto items = std::exchange(m_items, {});
    for (const auto& [key, item] : items)
        if (item.timer)
            item.timer->m_key.reset();
}

std::optional<platform::Seconds> VirtualRunLoop::timeUntilNextEvent() const
{
    if (m_items.empty())
        return std::nullopt;
    return static_cast<Seconds>(std::max<Microseconds>(m_items.begin()->first.first - m_now, 0)) /
           1e6;
}

int VirtualRunLoop::runningThreads(std::string_view name) const
{
    return static_cast<int>(
        std::count_if(m_threads.begin(), m_threads.end(), [name](const auto& thread) {
            return name.empty() || thread->name() == name;
        }));
}

TimerPtr VirtualRunLoop::scheduleTimer(Seconds interval, bool repeats, Action action)
{
    checkCaller();
    const Microseconds step = rounded(interval);
    auto timer =
        std::make_shared<VirtualTimer>(*this, repeats ? std::max<Microseconds>(step, 1) : 0);
    timer->m_key = enqueue(m_now + step, Item{std::make_shared<Action>(std::move(action)), nullptr,
                                              timer.get(), nullptr});
    return timer;
}

void VirtualRunLoop::performAfterDelay(const void* target, Seconds delay, Action action)
{
    checkCaller();
    enqueue(m_now + rounded(delay),
            Item{std::make_shared<Action>(std::move(action)), target, nullptr, nullptr});
}

void VirtualRunLoop::cancelPreviousPerformRequests(const void* target)
{
    checkCaller();
    std::vector<Item> cancelled;
    for (auto it = m_items.begin(); target && it != m_items.end();) {
        if (it->second.target == target) {
            cancelled.push_back(std::move(it->second));
            it = m_items.erase(it);
        } else {
            ++it;
        }
    }
}

void VirtualRunLoop::performOnMainThread(Action action, bool waitUntilDone)
{
    checkCaller();
    if (waitUntilDone && isMainThread()) {
        action();
        return;
    }
    if (m_isShuttingDown)
        return;
    VirtualThread* const waiting = waitUntilDone ? m_current : nullptr;
    enqueue(m_now, Item{std::make_shared<Action>(std::move(action)), nullptr, nullptr,
                        waiting ? waiting->shared_from_this() : nullptr});
    if (waiting)
        waiting->pause();
}

ThreadPtr VirtualRunLoop::makeThread(std::string name, ThreadBody body)
{
    return std::make_shared<VirtualThread>(*this, std::move(name), std::move(body));
}

void VirtualRunLoop::sleep(Seconds duration)
{
    checkCaller();
    if (m_isShuttingDown)
        return;
    if (isMainThread()) {
        runNext(m_now + rounded(duration), true);
        return;
    }
    VirtualThread* const self = m_current;
    enqueue(m_now + rounded(duration), Item{nullptr, nullptr, nullptr, self->shared_from_this()});
    self->pause();
}

platform::Seconds VirtualRunLoop::now() const { return static_cast<Seconds>(m_now) / 1e6; }

bool VirtualRunLoop::isMainThread() const { return std::this_thread::get_id() == m_mainThread; }

void VirtualRunLoop::checkCaller() const
{
    // Everything else is ordered by the turns, so a foreign thread must not come in.
    if (isMainThread() != (!m_current))
        fail("called by a thread that is not the loop's");
}

} // namespace lumbrix::test
