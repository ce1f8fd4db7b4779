// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the notifications of the Dock and of the applications set off, and when.

#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

using Intake = EngineFixture;

TEST_F(Intake, quickMovesAlongTheDock_dispatchOnlyTheItemRestedOn)
{
    add(u"Notes"_s, 1);
    const Pid maps = add(u"Maps"_s, 1);
    const auto notesWindow = desk.stacking().back();
    delays.delay = 0.4F;
    hover(u"Notes"_s);
    loop.advance(0.39);
    hover(u"Maps"_s);
    loop.advance(0.39);
    EXPECT_EQ(shown(), u""_s);
    loop.advance(0.01);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    EXPECT_EQ(desk.captures(notesWindow), 0);

    // Previews are up: the next item waits as well, unless the user wants it at once.
    hover(u"Notes"_s);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    loop.advance(0.4);
    EXPECT_EQ(shown(), u"Notes 1"_s);
    delays.notIfOpen = 1;
    hover(u"Maps"_s);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    // Either sign of it is enough.
    engine().hovered().setShouldInstantShow(false);
    hover(u"Notes"_s);
    EXPECT_EQ(shown(), u"Notes 1"_s);
    engine().removeAllScreenViews();
    engine().hovered().setShouldInstantShow(true);
    hover(u"Maps"_s);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    desk.quitApplication(maps); // its windows with it
    loop.advance(1);
    EXPECT_EQ(shown(), u""_s);
}

TEST_F(Intake, waitingDispatch_isDroppedWithTheNextSelection)
{
    add(u"Notes"_s, 1);
    delays.delay = 0.4F;
    const std::function<void()> selections[] = {
        [this] { desk.leaveDock(); },
        [this] { desk.openSwitcher({{u"Ghost"_s}}); },
    };
    for (const auto& select : selections) {
        hover(u"Notes"_s);
        select();
        loop.advance(2);
        EXPECT_EQ(shown(), u""_s);
    }
    leave();
    // Without a controller behind the notification there is no delay.
    observeDock(nullptr);
    hover(u"Notes"_s);
    EXPECT_EQ(shown(), u"Notes 1"_s);
}

TEST_F(Intake, dockMenu_takesThePanelsOffTheScreenInTheSameStep)
{
    add(u"Notes"_s, 2);
    hover(u"Notes"_s);
    engine().menuOpened();
    EXPECT_EQ(panelsOnScreen(), 0);
    EXPECT_FALSE(engine().hovered().shouldInstantShow());
    loop.advance(3);
    EXPECT_EQ(shown(), u""_s); // the update timer is off

    leave();
    hover(u"Notes"_s);
    // Any other removal waits for the next pass, in case the panels are used again at once.
    engine().removeAllScreenViews();
    EXPECT_EQ(panelsOnScreen(), 2);
    loop.runUntilIdle();
    EXPECT_EQ(panelsOnScreen(), 0);
    leave();
    hover(u"Notes"_s);
    desk.openDockMenu();
    loop.runUntilIdle();
    EXPECT_EQ(shown(), u""_s);
}

// A menu, or previews turned off, ended what was on the screen; what was under way came up after
// it, over the menu, or with nothing left that would ever end it.
TEST_F(Intake, hoverUnderWay_endsWithAMenuAndWithPreviewsTurnedOff)
{
    add(u"Notes"_s, 2);
    add(u"Maps"_s, 1);
    const auto openMenu = [&] { desk.openDockMenu(); };
    const auto turnOff = [&] {
        settings().disabled = 1;
        engine().settingsDidChange();
    };
    const auto delayed = [&] {
        delays.delay = 0.4F;
        hover(u"Maps"_s);
    };
    const auto checked = [&] {
        hover(u"Notes"_s);
        hover(u"Maps"_s);
        ASSERT_EQ(loop.runningThreads("mouse-checker"), 1);
    };
    const auto shownForGood = [&] {
        settings().neverClose = 1;
        hover(u"Notes"_s);
        leave();
        ASSERT_EQ(shown(), u"Notes 2, Notes 1"_s);
    };
    using Step = std::function<void()>;
    for (const Step& end : {Step(openMenu), Step(turnOff)}) {
        for (const Step& start : {Step(delayed), Step(checked), Step(shownForGood)}) {
            start();
            end();
            loop.advance(2);
            EXPECT_EQ(shown(), u""_s);
            EXPECT_EQ(panelsOnScreen(), 0);
            EXPECT_FALSE(isTapOn());
            delays.delay = 0;
            settings().disabled = 0;
            settings().neverClose = 0;
            leave();
        }
    }
}

// Of a mouse that was seen to rest, and had left before a busy main thread heard of it.
TEST_F(Intake, confirmationAfterTheMouseHasLeft_showsNothing)
{
    add(u"Notes"_s, 2);
    add(u"Maps"_s, 1);
    hover(u"Notes"_s);
    hover(u"Maps"_s);
    desk.leaveDock();
    loop.sleep(0.05); // the checker asks for the hover, behind the news of the exit
    loop.advance(2);
    EXPECT_EQ(shown(), u""_s);
}

// Nobody told of the end of its selection, and the row stayed for good.
TEST_F(Intake, dockThatEndsWhileHovered_takesTheRowWithIt)
{
    add(u"Notes"_s, 2);
    hover(u"Notes"_s);
    ASSERT_EQ(shown(), u"Notes 2, Notes 1"_s);
    desk.killDock();
    loop.advance(1);
    EXPECT_EQ(shown(), u""_s);
}

TEST_F(Intake, windows_areRecordedAsTheyComeAndGo_unlessDisabled)
{
    const Pid notes = add(u"Notes"_s, 0);
    const auto count = [&] { return engine().inventory().countForPID(notes); };
    for (const bool tellsRole : {true, false}) {
        desk.with([=](SimulatedState& state) { state.destroyedWindowsTellRole = tellsRole; });
        const WindowID number = desk.addWindow(notes, {u"Ideas"_s});
        loop.runUntilIdle();
        EXPECT_EQ(count(), 1);
        desk.closeWindow(number);
        loop.runUntilIdle();
        EXPECT_EQ(count(), tellsRole ? 0 : 1); // or else with the next scan
        loop.advance(2.5);
        EXPECT_EQ(count(), 0);
    }
    settings().disabled = 1;
    desk.addWindow(notes, {u"Ideas"_s});
    hover(u"Notes"_s);
    loop.advance(5);
    EXPECT_EQ(count(), 0);
    EXPECT_EQ(shown(), u""_s);
    settings().disabled = 0;
    loop.advance(2.5); // the next scan
    EXPECT_EQ(count(), 1);
}

TEST_F(Intake, applications_areObservedWhileTheyRun)
{
    const Pid notes = add(u"Notes"_s, 1);
    const Pid stubborn = desk.addApplication({u"Vault"_s, {}, 0, true, false, true, false});
    loop.runUntilIdle();
    EXPECT_TRUE(engine().isObserving(notes));
    EXPECT_FALSE(engine().isObserving(stubborn));
    engine().addObserverForApp(notes); // no second one
    desk.quitApplication(notes);
    loop.runUntilIdle();
    EXPECT_FALSE(engine().isObserving(notes));
    loop.advance(2.5);
    EXPECT_EQ(engine().inventory().countForPID(notes), 0);

    const Pid maps = add(u"Maps"_s, 1);
    const WindowID number = desk.stacking().front();
    engine().inventory().removeWindow(desk.windowElement(number));
    desk.showSpace(2); // is a reason to scan
    loop.runUntilIdle();
    EXPECT_EQ(engine().inventory().countForPID(maps), 1);
}

TEST_F(Intake, movingOnWhileARowIsUp_waitsUntilTheMouseRests)
{
    add(u"Notes"_s, 2);
    add(u"Maps"_s, 1);
    hover(u"Notes"_s);
    desk.hoverDockItem(u"Maps"_s);
    for (int i = 0; i < 20; ++i) {
        desk.movePointer(desk.inputState().mouseLocation() + QPointF(0.5, 0));
        loop.advance(0.01);
        ASSERT_EQ(shown(), u"Notes 2, Notes 1"_s);
    }
    EXPECT_EQ(loop.runningThreads("mouse-checker"), 1);
    loop.advance(0.04);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    EXPECT_EQ(loop.runningThreads("mouse-checker"), 0);

    // The mouse was only passing on its way to the row.
    hover(u"Notes"_s);
    EXPECT_EQ(shown(), u"Notes 2, Notes 1"_s); // one preview is no row
    desk.hoverDockItem(u"Maps"_s);
    loop.advance(0.01);
    movePointerTo(preview(0));
    loop.advance(1);
    EXPECT_EQ(shown(), u"Notes 2, Notes 1"_s);
    EXPECT_EQ(loop.runningThreads("mouse-checker"), 0);

    // It was only passing on its way back: the row of the passed icon came up, far from the mouse.
    hover(u"Notes"_s);
    desk.hoverDockItem(u"Maps"_s);
    loop.advance(0.01);
    desk.hoverDockItem(u"Notes"_s);
    loop.advance(1);
    EXPECT_EQ(shown(), u"Notes 2, Notes 1"_s);
}

TEST_F(Intake, leavingTheDock_dropsTheItemThatTheMouseWasToRestOn)
{
    add(u"Notes"_s, 2);
    add(u"Maps"_s, 1);
    for (const bool toTheTrash : {false, true}) {
        hover(u"Notes"_s);
        ASSERT_EQ(shown(), u"Notes 2, Notes 1"_s);
        desk.hoverDockItem(u"Maps"_s);
        loop.advance(0.01);
        ASSERT_EQ(loop.runningThreads("mouse-checker"), 1);
        if (toTheTrash)
            hover(u"Trash"_s);
        else
            leave();
        EXPECT_EQ(engine().hovered().shouldInstantShow(), toTheTrash);
        loop.advance(1);
        EXPECT_EQ(shown(), u""_s) << toTheTrash;
    }
}

using Start = DesktopFixture;

TEST_F(Start, applicationsThatRunAlready_areObserved)
{
    const Pid notes = addApplication(u"Notes"_s, 1);
    LXHandler::installCompanions(ports(), {});
    LXHandler& engine = LXHandler::sharedHandler();
    loop.runUntilIdle(); // the first scan; the next one is far
    desk.addWindow(notes, {u"New"_s});
    loop.runUntilIdle();
    EXPECT_EQ(engine.inventory().countForPID(notes), 2);
    loop.shutdown();
    LXHandler::releaseSharedHandler();
}

} // namespace
} // namespace lumbrix::test
