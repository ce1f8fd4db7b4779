// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The badges over the Dock, with the engine that counts.
#include "badges/BadgeLook.h"
#include "badges/WinNumberBadger.h"
#include "platform/UserDefaults.h"
#include "preview/MAWindow.h"
#include "preview/NumberLabel.h"
#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

class Badger : public EngineFixture
{
protected:
    Badger()
    {
        badger().setBadgePosition(3);
        badger().setShouldBadgeDock(true);
    }
    WinNumberBadger& badger() { return *badges; }

    /// "<item> <count>" of every badge on the screen, in the order of the Dock.
    QString shownBadges() const
    {
        QStringList result;
        for (const auto& badge : badges->badgesArray()) {
            if (badge->window().isFront())
                result += badge->dockItem()->getTitle().value_or(QString()) + u' ' +
                          badge->badge().text();
        }
        return result.join(u", "_s);
    }
    bool liesOn(const QString& title)
    {
        const auto item = std::make_shared<SWElement>(ports(), desk.dockItem(title));
        const WinNumberBadge* badge = badger().badgeForDockItem(*item);
        if (!badge)
            return false;
        const QRectF exact = badgeFrame(item->getNSRect(), 3, 0);
        const QRectF frame = badge->window().frame();
        return QPointF(frame.center() - exact.center()).manhattanLength() < 2;
    }
    void moveDock(double distance)
    {
        desk.with([distance](SimulatedState& state) {
            for (SimulatedDockItem& item : state.dockItems)
                item.frame.translate(distance, 0);
        });
    }
};

TEST_F(Badger, counts_followTheWindows)
{
    add(u"Idle"_s, 0);
    const Pid editor = add(u"Editor"_s, 2);
    const Pid notes = add(u"Notes"_s, 1);
    EXPECT_EQ(shownBadges(), u"Editor 2, Notes 1"_s);
    EXPECT_TRUE(liesOn(u"Editor"_s));

    badger().setBadgeOnlyIfMore(true);
    badger().badgeDockItems();
    EXPECT_EQ(shownBadges(), u"Editor 2"_s);
    desk.addWindow(notes, {u"Another"_s});
    desk.closeWindow(desk.stacking().back());
    loop.runUntilIdle();
    EXPECT_EQ(shownBadges(), u"Notes 2"_s);

    badger().setBadgeOnlyIfMore(false);
    badger().badgeDockItems();
    EXPECT_EQ(shownBadges(), u"Editor 1, Notes 2"_s);
    desk.quitApplication(editor);
    loop.runUntilIdle();
    EXPECT_EQ(shownBadges(), u"Notes 2"_s);
    EXPECT_TRUE(liesOn(u"Notes"_s));
}

TEST_F(Badger, buttonOfOneWindowOfSeveral_hasNoCount)
{
    add(u"Editor"_s, 2);
    const Pid notes = add(u"Notes"_s, 1);
    desk.with([&](SimulatedState& state) {
        state.knowsWindowNumbers = true;
        for (SimulatedDockItem& item : state.dockItems)
            if (item.title == u"Notes"_s)
                item.window = state.windowsOf(notes).front();
    });
    badger().badgeDockItems();
    EXPECT_EQ(shownBadges(), u"Editor 2, Notes 1"_s);
    desk.addWindow(notes, {u"Another"_s});
    loop.runUntilIdle();
    EXPECT_EQ(shownBadges(), u"Editor 2"_s);
}

TEST_F(Badger, dockThatCountsItself_hasNoCountBesideItsOwn)
{
    add(u"Editor"_s, 2);
    EXPECT_EQ((badger().badgeDockItems(), shownBadges()), u"Editor 2"_s);
    desk.dockPreferences().hasCounts = true;
    EXPECT_EQ((badger().badgeDockItems(), shownBadges()), u""_s);
}

TEST_F(Badger, panels_letTheMouseThroughAndLieBelowPreviews)
{
    add(u"Editor"_s, 1);
    const MAWindow& panel = badger().badgesArray().front()->window();
    EXPECT_TRUE(panel.clickThrough());
    EXPECT_LT(panel.level(), 0);
    EXPECT_EQ(panel.windowRole(), u"window-count"_s);
}

TEST_F(Badger, dockThatMovesUntold_isFollowedOnceItRests)
{
    add(u"Editor"_s, 1);
    const WinNumberBadge& badge = *badger().badgesArray().front();
    const QRectF before = badge.window().frame();
    for (int i = 0; i < 20; ++i) { // longer than from one look to the next
        moveDock(10);
        loop.advance(0.015);
        EXPECT_EQ(badge.window().frame(), before) << "it has not come to rest";
    }
    loop.advance(0.06);
    EXPECT_TRUE(liesOn(u"Editor"_s));

    moveDock(-40);
    desk.tellDockItemsChanged();
    loop.runUntilIdle();
    EXPECT_TRUE(liesOn(u"Editor"_s)) << "a Dock that tells is followed at once";
}

// Badges in the air over other programs' windows would only be in the way.
TEST_F(Badger, dockOutOfSight_takesTheBadgesAlong)
{
    add(u"Editor"_s, 1);
    desk.with([](SimulatedState& state) { state.isDockHidden = true; });
    loop.advance(0.3);
    EXPECT_EQ(shownBadges(), u""_s);
    add(u"Notes"_s, 1);
    EXPECT_EQ(shownBadges(), u""_s) << "a new one";
    desk.with([](SimulatedState& state) { state.isDockHidden = false; });
    loop.advance(0.3);
    EXPECT_EQ(shownBadges(), u"Editor 1, Notes 1"_s);
    desk.killDock();
    loop.advance(0.3);
    EXPECT_EQ(shownBadges(), u""_s);
}

TEST_F(Badger, fullScreen_removesPreviewsAtOnceAndBadgesSoon)
{
    const Pid editor = add(u"Editor"_s, 2);
    hover(u"Editor"_s);
    ASSERT_EQ(panelsOnScreen(), 2);
    desk.leaveDock();
    desk.setSystemUIMode(3);
    loop.runUntilIdle();
    EXPECT_EQ(panelsOnScreen(), 0);
    loop.advance(0.25);
    EXPECT_EQ(shownBadges(), u""_s);
    desk.addWindow(editor, {u"Another"_s});
    loop.advance(3);
    EXPECT_EQ(shownBadges(), u""_s);
    desk.setSystemUIMode(0);
    loop.runUntilIdle();
    EXPECT_EQ(shownBadges(), u"Editor 3"_s);
}

TEST_F(Badger, fullScreenAtTheStart_badgesComeWhenItEnds)
{
    add(u"Editor"_s, 1);
    desk.setSystemUIMode(3);
    WinNumberBadger late(ports());
    late.setShouldBadgeDock(true);
    late.setUp(engine());
    EXPECT_TRUE(late.isInFullscreen());
    EXPECT_TRUE(late.badgesArray().empty());
    desk.setSystemUIMode(0);
    loop.runUntilIdle();
    EXPECT_EQ(late.badgesArray().size(), 1U);
    late.tearDown();
    loop.shutdown();
}

TEST_F(Badger, turnedOff_goesSoonAndWakesNobodyUp)
{
    add(u"Editor"_s, 1);
    EXPECT_EQ(loop.runningThreads("badge-watcher"), 1);
    badger().setShouldBadgeDock(false);
    loop.advance(0.25);
    EXPECT_EQ(shownBadges(), u""_s);
    loop.advance(0.25);
    EXPECT_EQ(loop.runningThreads("badge-watcher"), 0);
    add(u"Notes"_s, 1);
    EXPECT_EQ(shownBadges(), u""_s);

    badger().setShouldBadgeDock(true);
    badger().badgeDockItems();
    EXPECT_EQ(shownBadges(), u"Editor 1, Notes 1"_s);
    EXPECT_EQ(loop.runningThreads("badge-watcher"), 1);
    moveDock(100);
    loop.advance(0.3);
    EXPECT_TRUE(liesOn(u"Editor"_s));
}

TEST_F(Badger, color_isBlueUntilOneIsChosenOrStored)
{
    platform::UserDefaults& defaults = desk.userDefaults();
    const QString key = u"winBadgeColor"_s;
    for (const char* garbage : {"", "\xff\xfe garbage", "#12"}) {
        defaults.setData(garbage, key);
        EXPECT_EQ(badger().getCurrentColor(), defaultBadgeColor);
        EXPECT_EQ(defaults.dataForKey(key), QByteArray(garbage)) << "nothing is written";
    }
    defaults.setData("#10203040", key);
    EXPECT_EQ(badger().getCurrentColor(), QColor(16, 32, 48, 64));
    badger().setCurrentColor(Qt::red);
    badger().setCurrentColor(QColor());
    EXPECT_EQ(badger().getCurrentColor(), QColor(Qt::red));
    EXPECT_EQ(defaults.dataForKey(key), QByteArray("#ff0000ff"));
    EXPECT_FALSE(desk.userDefaults().hasUnsavedChanges());
}

} // namespace
} // namespace lumbrix::test
