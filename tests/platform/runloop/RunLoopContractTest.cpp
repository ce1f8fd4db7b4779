// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What every run loop promises, asked of the one that users run on and of the one of the tests.

#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>

#include <atomic>
#include <string>
#include <vector>

#include "platform/qt/QtRunLoop.h"
#include "tests/support/VirtualRunLoop.h"

namespace lumbrix::test
{
namespace
{

using platform::QtRunLoop;
using platform::RunLoop;
using platform::Thread;
using platform::ThreadPtr;
using platform::TimerPtr;

class Driver
{
public:
    virtual ~Driver() = default;
    virtual RunLoop& loop() = 0;
    virtual void shutdown() = 0;
    /// Runs the main loop a little.
    virtual void step() = 0;

    bool runUntil(const std::function<bool()>& condition)
    {
        const QDeadlineTimer deadline(20'000);
        while (!condition() && !deadline.hasExpired())
            step();
        return condition();
    }
};

template <class Loop> class DriverOf final : public Driver
{
public:
    Loop& loop() override { return m_loop; }
    void shutdown() override { m_loop.shutdown(); }
    void step() override
    {
        if constexpr (std::is_same_v<Loop, VirtualRunLoop>)
            m_loop.advance(0.001);
        else
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
    }

private:
    Loop m_loop;
};

using MakeDriver = std::unique_ptr<Driver> (*)();

class RunLoopContract : public testing::TestWithParam<MakeDriver>
{
protected:
    RunLoop& loop() { return driver->loop(); }
    /// Waits for something scheduled now with the same delay: all that was due before has happened.
    void runFor(platform::Seconds delay)
    {
        bool hasPassed = false;
        const TimerPtr timer = loop().scheduleTimer(delay, false, [&] { hasPassed = true; });
        ASSERT_TRUE(driver->runUntil([&] { return hasPassed; }));
    }

    const std::unique_ptr<Driver> driver = GetParam()();
};

TEST_P(RunLoopContract, timers_fireInOrderOfTime_andRepeatUntilInvalidated)
{
    std::string order;
    TimerPtr late = loop().scheduleTimer(0.03, false, [&] { order += 'c'; });
    TimerPtr early = loop().scheduleTimer(0.01, false, [&] {
        order += 'b';
        EXPECT_FALSE(early->isValid());
    });
    TimerPtr next = loop().scheduleTimer(0.0, false, [&] { order += 'a'; });
    EXPECT_TRUE(early->isValid());
    EXPECT_EQ(order, ""); // nothing runs inside the call
    ASSERT_TRUE(driver->runUntil([&] { return !late->isValid(); }));
    EXPECT_EQ(order, "abc");

    int count = 0;
    const double start = loop().now();
    TimerPtr repeating = loop().scheduleTimer(0.01, true, [&] {
        if (++count == 4)
            repeating->invalidate();
    });
    ASSERT_TRUE(driver->runUntil([&] { return !repeating->isValid(); }));
    EXPECT_GE(loop().now() - start, 0.039);
    runFor(0.03);
    EXPECT_EQ(count, 4);
    repeating->invalidate();
}

TEST_P(RunLoopContract, timerThatIsDropped_neverFires_alsoWhenDueOrInItsOwnAction)
{
    int fired = 0;
    TimerPtr self;
    const auto witness = std::make_shared<int>(7);
    self = loop().scheduleTimer(0.001, true, [&fired, &self, witness] {
        ++fired;
        self.reset();
        EXPECT_EQ(*witness, 7); // the action outlives its timer
    });
    ASSERT_TRUE(driver->runUntil([&] { return fired > 0; }));
    EXPECT_EQ(witness.use_count(), 1);

    // Both are due at once: whichever comes first ends the other.
    TimerPtr first;
    TimerPtr second;
    int winners = 0;
    first = loop().scheduleTimer(0.002, false, [&] { ++winners, second.reset(); });
    second = loop().scheduleTimer(0.002, false, [&] { ++winners, first->invalidate(); });
    loop().sleep(0.01);
    runFor(0.01);
    EXPECT_EQ(winners, 1);
    EXPECT_EQ(fired, 1);
}

TEST_P(RunLoopContract, delayedCalls_areCancelledByTheirTargetOnly)
{
    const int mine = 0;
    const int other = 0;
    std::string order;
    loop().performAfterDelay(&mine, 0.01, [&] { order += 'x'; });
    loop().performAfterDelay(&mine, 0.0, [&] { order += 'y'; });
    loop().performAfterDelay(&other, 0.01, [&] { order += 'b'; });
    loop().cancelPreviousPerformRequests(&mine);
    loop().performAfterDelay(&mine, 0.0, [&] {
        order += 'a';
        loop().cancelPreviousPerformRequests(&mine);
    });
    const TimerPtr timer = loop().scheduleTimer(0.005, false, [&] { order += 't'; });
    loop().cancelPreviousPerformRequests(nullptr);
    runFor(0.02);
    EXPECT_EQ(order, "atb");
}

TEST_P(RunLoopContract, hopsToTheMainThread_keepTheirOrder_andWaitWhenAsked)
{
    std::string order;
    loop().performOnMainThread([&] { order += 'b'; }, false);
    loop().performOnMainThread([&] { order += 'a'; }, true);
    EXPECT_EQ(order, "a");

    std::atomic_bool sawResult{false};
    const ThreadPtr thread = loop().detachThread("hopper", [&](const Thread&) {
        EXPECT_FALSE(loop().isMainThread());
        loop().performOnMainThread([&] { order += 'c'; }, false);
        bool ran = false;
        loop().performOnMainThread(
            [&] {
                EXPECT_TRUE(loop().isMainThread());
                order += 'd';
                ran = true;
            },
            true);
        sawResult = ran;
    });
    ASSERT_TRUE(driver->runUntil([&] { return thread->isFinished(); }));
    EXPECT_TRUE(sawResult);
    EXPECT_EQ(order, "abcd");
}

TEST_P(RunLoopContract, threads_sleepAsLongAsAsked_andSeeTheirCancellation)
{
    std::atomic<double> slept{0};
    const auto payload = std::make_shared<int>(0);
    const ThreadPtr thread = loop().makeThread("sleeper", [&, payload](const Thread& self) {
        const double start = loop().now();
        loop().sleep(0.02);
        slept = loop().now() - start;
        while (!self.isCancelled())
            loop().sleep(0.001);
    });
    runFor(0.002);
    EXPECT_EQ(slept, 0.0); // not started yet
    thread->start();
    ASSERT_TRUE(driver->runUntil([&] { return slept > 0; }));
    EXPECT_GE(slept, 0.0199);
    EXPECT_FALSE(thread->isFinished());
    thread->cancel();
    ASSERT_TRUE(driver->runUntil([&] { return thread->isFinished(); }));
    EXPECT_EQ(payload.use_count(), 1);
    thread->cancel();
}

TEST_P(RunLoopContract, shutdown_endsSleepersAndWaiters_andDropsWhatIsQueued)
{
    std::atomic_int ended{0};
    std::atomic_bool isAsleep{false};
    int ranLate = 0;
    const ThreadPtr sleeper = loop().detachThread("sleeper", [&](const Thread& self) {
        isAsleep = true;
        while (!self.isCancelled())
            loop().sleep(1e6);
        ++ended;
    });
    ASSERT_TRUE(driver->runUntil([&] { return isAsleep.load(); }));
    const ThreadPtr waiter = loop().detachThread("waiter", [&](const Thread&) {
        loop().performOnMainThread([&] { driver->shutdown(), loop().sleep(10); }, true);
        // Nothing of this can run any more, but nothing blocks either.
        loop().performOnMainThread([&] { ++ranLate; }, true);
        loop().performOnMainThread([&] { ++ranLate; }, false);
        ++ended;
    });
    const TimerPtr timer = loop().scheduleTimer(1000, false, [] {});
    ASSERT_TRUE(driver->runUntil([&] { return ended == 2; }));
    EXPECT_TRUE(sleeper->isCancelled() && sleeper->isFinished() && waiter->isFinished());
    EXPECT_FALSE(timer->isValid());

    const ThreadPtr late = loop().detachThread("late", [&](const Thread&) { ++ranLate; });
    EXPECT_TRUE(late->isFinished());
    driver->shutdown();
    EXPECT_EQ(ranLate, 0);
}

INSTANTIATE_TEST_SUITE_P(
    Loops, RunLoopContract,
    testing::Values<MakeDriver>(
        []() -> std::unique_ptr<Driver> { return std::make_unique<DriverOf<QtRunLoop>>(); },
        []() -> std::unique_ptr<Driver> { return std::make_unique<DriverOf<VirtualRunLoop>>(); }),
    [](const auto& tested) { return tested.index == 0 ? "qt" : "virtual"; });

} // namespace
} // namespace lumbrix::test
