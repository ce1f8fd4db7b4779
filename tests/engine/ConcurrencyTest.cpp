// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The engine among threads that really run at once. What it shows is chance; what counts is that
// the sanitizers find nothing, and that it settles on the truth in the end.

#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QEventLoop>

#include <array>
#include <atomic>

#include "engine/LXHandler.h"
#include "platform/qt/QtRunLoop.h"
#include "preview/SafariPreview.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{
namespace
{

using SafariPreviewTest = DesktopFixture;

TEST_F(SafariPreviewTest, tabs_areScannedForOnceAndInVain_andCopiedOut)
{
    SafariPreview& preview = SafariPreview::sharedPreview(loop);
    EXPECT_EQ(&preview, &SafariPreview::sharedPreview(loop));
    EXPECT_EQ(loop.runningThreads("tab-scanner"), 1);
    loop.runUntilIdle();
    EXPECT_EQ(loop.runningThreads("tab-scanner"), 0);
    EXPECT_TRUE(preview.tabsArray().empty());
    preview.addObject(1);
    preview.insertObject(2, 0);
    preview.insertObject(2, 99);
    EXPECT_EQ(preview.tabsArray(), (std::vector<SafariPreview::Tab>{2, 1, 2}));
    preview.removeObject(2);
    EXPECT_EQ(preview.tabsArray(), std::vector<SafariPreview::Tab>{1});
    SafariPreview::releaseSharedPreview();
}

TEST(EngineConcurrency, windowsChangedByTheirApplications_whileScannedCapturedAndShown)
{
    platform::QtRunLoop loop;
    SimulatedDesktop desk(loop);
    const platform::Desktop desktop = desk.ports();
    const platform::DesktopScope scope(desktop);
    // Several ask for the one list of tabs while the engine makes it.
    std::array<std::atomic<SafariPreview*>, 4> previews{};
    for (auto& preview : previews)
        loop.detachThread("asker", [&preview, &loop](const platform::Thread&) {
            preview = &SafariPreview::sharedPreview(loop);
            preview.load()->addObject(1);
        });
    LXHandler::installCompanions(desktop, {});
    LXHandler& engine = LXHandler::sharedHandler();
    engine.settings().showInDock = 1;
    engine.settings().showSpaces = 1;
    engine.settings().windowWidth = 100;
    engine.settings().windowHeight = 80;
    const Pid notes = desk.addApplication({u"Notes"_s});
    for (const QString& title : {u"First"_s, u"Second"_s})
        desk.addWindow(notes, {title});
    desk.hoverDockItem(u"Notes"_s);

    std::atomic_bool isOver{false};
    const auto application = loop.detachThread("application", [&](const platform::Thread&) {
        for (int i = 0; i < 400; ++i) {
            const WindowID number = desk.addWindow(notes, {u"Passing %1"_s.arg(i)});
            desk.changeWindow(number, [](auto& window) { window.version += 1; });
            desk.closeWindow(number);
        }
        isOver = true;
    });
    const auto scanner = loop.detachThread("scanner", [&](const platform::Thread&) {
        while (!isOver)
            engine.inventory().windowScanner();
    });
    const SWElementPtr item = SWElement::elementWithElementRef(desktop, desk.dockItem(u"Notes"_s));
    item->setIsMouseConfirmed(true);
    const QDeadlineTimer deadline(30'000);
    while (!(application->isFinished() && scanner->isFinished()) && !deadline.hasExpired()) {
        engine.iconHovered(item);
        engine.updateWindows(item);
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    }
    ASSERT_FALSE(deadline.hasExpired());
    engine.inventory().windowScanner();
    QCoreApplication::processEvents();
    engine.iconHovered(item);
    engine.updateWindows(item);
    EXPECT_EQ(engine.inventory().windowsArray().size(), 2U);
    EXPECT_EQ(engine.screenyViews().size(), 2U);
    loop.shutdown();
    for (const auto& preview : previews)
        EXPECT_EQ(preview, &SafariPreview::sharedPreview(loop));
    EXPECT_EQ(SafariPreview::sharedPreview(loop).tabsArray().size(), previews.size());
    LXHandler::releaseSharedHandler();
}

} // namespace
} // namespace lumbrix::test
