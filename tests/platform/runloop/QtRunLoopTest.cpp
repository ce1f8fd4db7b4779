// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>

#include <pthread.h>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <semaphore>
#include <string>

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

TEST(QtRunLoop, threadsStartedOften_leaveNoStacksBehind)
{
    QtRunLoop loop;
    std::atomic_int ran{0};
    const auto startRound = [&] {
        for (int i = 0; i < 15; ++i)
            loop.detachThread("capture", [&](const Thread&) { ++ran; });
    };
    startRound();
    int round = 0;
    QEventLoop events;
    const TimerPtr timer = loop.scheduleTimer(0.0, true, [&] {
        // A round starts when the previous one has run, as the captures of a preview do.
        if (ran == 15 * (round + 1)) {
            if (++round == 30)
                events.quit();
            else
                startRound();
        }
    });
    events.exec();
    EXPECT_EQ(ran, 450);
    // Those that have run may take their time to end; a few stacks are kept for the next thread.
    const QDeadlineTimer deadline(30'000);
    while (stacksMapped() >= 100 && !deadline.hasExpired())
        QCoreApplication::processEvents();
    EXPECT_LT(stacksMapped(), 100);
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
