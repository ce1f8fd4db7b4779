// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QtCore/QEventLoop>

#include <atomic>
#include <fstream>

#include "platform/qt/QtRunLoop.h"

namespace lumbrix::test
{
namespace
{

using platform::QtRunLoop;
using platform::Thread;
using platform::TimerPtr;

/// Address space in use; a thread that is never joined keeps its stack.
long virtualPages()
{
    std::ifstream file("/proc/self/statm");
    long pages = 0;
    file >> pages;
    return pages;
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
    const long before = virtualPages();
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
    constexpr long pagesOfAHundredStacks = 100L * 8 * 1024 * 1024 / 4096;
    EXPECT_LT(virtualPages() - before, pagesOfAHundredStacks);
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

} // namespace
} // namespace lumbrix::test
