// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>

#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <mutex>
#include <semaphore>
#include <set>
#include <string>
#include <thread>

#include "platform/MainThreadGuard.h"
#include "platform/qt/QtRunLoop.h"

namespace lumbrix::test
{
namespace
{

using platform::QtRunLoop;
using platform::Thread;
using platform::TimerPtr;

/// The mappings as large as a thread's stack; a thread that is never joined keeps its own. Address
/// space as a whole would not do: each thread may also be given an allocation arena, and how many
/// there are depends on the processors.
int stacksMapped()
{
    pthread_attr_t attributes;
    std::size_t stackSize = 0;
    pthread_getattr_default_np(&attributes);
    pthread_attr_getstacksize(&attributes, &stackSize);
    pthread_attr_destroy(&attributes);
    std::ifstream file("/proc/self/maps");
    int count = 0;
    for (std::string line; std::getline(file, line);) {
        unsigned long begin = 0;
        unsigned long end = 0;
        char mayWrite = '-';
        // "begin-end rw-p …"
        if (std::sscanf(line.c_str(), "%lx-%lx r%c", &begin, &end, &mayWrite) == 3 &&
            mayWrite == 'w' && end - begin == stackSize)
            ++count;
    }
    return count;
}

TEST(QtRunLoop, threadsStartedOften_areUsedAgain_andLeaveNoStacksBehind)
{
    constexpr int together = 15;
    constexpr int rounds = 30;
    QtRunLoop loop;
    const int before = stacksMapped();
    std::atomic_int ran{0};
    std::mutex mutex;
    std::set<pid_t> used;
    int round = 0;
    const auto startRound = [&] {
        for (int i = 0; i < together; ++i)
            loop.detachThread("capture", [&, all = together * (round + 1)](const Thread&) {
                {
                    const std::lock_guard lock(mutex);
                    used.insert(gettid());
                }
                ++ran;
                while (ran < all)
                    std::this_thread::yield();
            });
    };
    startRound();
    QEventLoop events;
    const TimerPtr timer = loop.scheduleTimer(0.0, true, [&] {
        // A round starts when the previous one has run, as the captures of a preview do.
        if (ran < together * (round + 1))
            return;
        if (++round == rounds)
            events.quit();
        else
            startRound();
    });
    events.exec();
    // One that has only just run may be late for the next round.
    EXPECT_LT(used.size(), together * rounds / 2U);
    // What is not needed any more ends; a few stacks are kept for the next thread.
    constexpr int few = together / 2 + 2;
    const QDeadlineTimer deadline(30'000);
    while (stacksMapped() - before > few && !deadline.hasExpired())
        QCoreApplication::processEvents();
    EXPECT_LE(stacksMapped() - before, few);
}

TEST(QtRunLoop, hop_reachesTheMainThread_whileAnotherHopRunsAnEventLoop)
{
    QtRunLoop loop;
    QEventLoop outer;
    loop.performOnMainThread(
        [&] {
            QEventLoop inner;
            loop.performOnMainThread([&] { inner.quit(); }, false);
            inner.exec();
            outer.quit();
        },
        false);
    bool cameThrough = false;
    loop.performOnMainThread([&] { cameThrough = true; }, false);
    outer.exec();
    EXPECT_TRUE(cameThrough);
}

TEST(QtRunLoop, timersAndThreads_mayOutliveTheLoop)
{
    TimerPtr timer;
    platform::ThreadPtr thread;
    bool ran = false;
    {
        QtRunLoop loop;
        timer = loop.scheduleTimer(0.0, true, [] {});
        thread = loop.makeThread("unused", [&](const Thread&) { ran = true; });
    }
    EXPECT_FALSE(timer->isValid());
    timer->invalidate();
    thread->start();
    EXPECT_TRUE(thread->isFinished());
    EXPECT_FALSE(ran);
}

TEST(QtRunLoop, threadThatNothingStops_isGivenUp)
{
    const auto end = std::make_shared<std::binary_semaphore>(0);
    platform::ThreadPtr thread;
    {
        QtRunLoop loop;
        thread = loop.detachThread("stuck", [end](const Thread&) { end->acquire(); });
        EXPECT_FALSE(loop.shutdown(0.0));
    }
    EXPECT_FALSE(thread->isFinished());
    end->release();
    while (!thread->isFinished())
        std::this_thread::yield();
}

TEST(MainThreadGuardTest, ownerGone_callThatWasMadeBefore_doesNothing)
{
    int sum = 0;
    auto guard = std::make_unique<platform::MainThreadGuard>();
    const auto add = guard->ifAlive([&sum](int value) { sum += value; });
    add(1);
    guard.reset();
    add(2);
    EXPECT_EQ(sum, 1);
}

} // namespace
} // namespace lumbrix::test
