// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Previews for the Command-Tab switcher, and the clicks that it would keep from them.

#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

class Switcher : public EngineFixture
{
protected:
    Switcher()
    {
        notes = add(u"Notes"_s, 2);
        maps = add(u"Maps"_s, 1);
        desk.activateApplication(maps);
    }
    void open(std::size_t selection)
    {
        desk.openSwitcher({{u"Notes"_s}, {u"Maps"_s}, {u"Ghost"_s}}, selection);
        loop.runUntilIdle();
    }

    Pid notes = 0;
    Pid maps = 0;
    const QString both = u"Notes 2, Notes 1"_s;
};

TEST_F(Switcher, selectedEntry_isShownAtTheBottom_andFollowed)
{
    desk.setDockEdge(DockEdge::Left);
    open(0);
    ASSERT_EQ(shown(), both);
    EXPECT_EQ(preview(0).window()->frame().y(), preview(1).window()->frame().y());
    EXPECT_TRUE(isTapOn());
    EXPECT_EQ(engine().currentDockElement(), nullptr);

    // A selection that the Dock does not report is found by the watch, once the switcher settled.
    desk.selectInSwitcher(1, false);
    loop.advance(0.1);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    EXPECT_NEAR(loop.now(), 0.3, 1e-6); // the main thread waited for it
    desk.selectInSwitcher(2, false);    // stands for no application
    loop.advance(1);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    // The Dock says that it stands for none.
    desk.selectInSwitcher(2);
    loop.runUntilIdle();
    EXPECT_EQ(shown(), u""_s);
}

TEST_F(Switcher, entriesOfOneApplication_moveTheMark_andAreWaitedForOnce)
{
    desk.with([](SimulatedState& state) { state.knowsWindowNumbers = true; });
    const auto windows = desk.stacking(); // the one of Maps, then those of Notes
    desk.openSwitcher({{u"Notes"_s, {}, {}, windows[1]}, {u"Notes"_s, {}, {}, windows[2]}});
    loop.runUntilIdle();
    ASSERT_EQ(shown(), both);
    for (const std::size_t selection : {1U, 0U, 1U}) {
        desk.selectInSwitcher(selection, selection == 0);
        loop.runUntilIdle();
        const double start = loop.now();
        for (int i = 0; i < 15; ++i)
            loop.advance(0.1);
        EXPECT_LT(loop.now() - start, 1.75) << "the main thread waits for each change once";
        EXPECT_EQ(preview(0).isMarked(), selection == 0);
        EXPECT_EQ(preview(1).isMarked(), selection == 1);
    }
}

TEST_F(Switcher, entries_waitForTheDelay_exceptThoseThatSayThatTheyRun)
{
    delays.delay = 0.4F;
    open(0);
    EXPECT_EQ(shown(), u""_s);
    loop.advance(0.4);
    EXPECT_EQ(shown(), both);
    desk.selectInSwitcher(1, false);
    loop.advance(0.1); // and 0.2 until the switcher has settled
    EXPECT_NEAR(loop.now(), 0.7, 1e-6);
    loop.advance(0.39);
    EXPECT_EQ(shown(), both);
    loop.advance(0.01);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    delays.notIfOpen = 1;
    desk.selectInSwitcher(0);
    loop.runUntilIdle();
    EXPECT_EQ(shown(), both);
    delays.notIfOpen = 0;
    const QUrl url = desk.application(maps).bundleURL;
    desk.openSwitcher({{u"Maps"_s, true, url}});
    loop.runUntilIdle();
    loop.advance(0.02); // a row was up: the mouse must rest
    EXPECT_EQ(shown(), u"Maps 1"_s);
    EXPECT_FALSE(preview(0).setByTab());
}

TEST_F(Switcher, release_picksThePreviewUnderTheMouse)
{
    open(0);
    movePointerTo(preview(1));
    loop.advance(0.1);
    EXPECT_TRUE(preview(1).isHovered()); // hovered, though no panel was entered
    // Over the close button too: a click would close the window, letting the switcher go never
    // does.
    desk.movePointer(preview(1).window()->frame().topLeft() +
                     preview(1).closeButtonFrame().center());
    desk.closeSwitcher();
    loop.advance(0.1);
    EXPECT_EQ(shown(), u""_s);
    EXPECT_EQ(desk.activeApplication(), notes);
    EXPECT_EQ(desk.window(desk.stacking().front())->title, u"Notes 1"_s);

    // A mouse that only lies where the row comes up hovers nothing and picks nothing.
    desk.activateApplication(maps);
    open(0);
    loop.advance(0.1);
    ASSERT_EQ(shown(), both);
    EXPECT_FALSE(preview(1).isHovered());
    desk.closeSwitcher();
    loop.advance(0.1);
    EXPECT_EQ(shown(), u""_s);
    EXPECT_EQ(desk.activeApplication(), maps);

    // A click there does, of which the switcher that it closes may be all that is seen.
    open(0);
    desk.with([](SimulatedState& state) { ++state.leftMouseDowns; });
    desk.closeSwitcher();
    loop.advance(0.1);
    EXPECT_EQ(desk.activeApplication(), notes);
}

TEST_F(Switcher, clicks_belongToThePreviewUnderThem_whileTheSwitcherIsUp)
{
    hover(u"Notes"_s);
    movePointerTo(preview(0));
    EXPECT_FALSE(engine().shouldInterceptClick(true, false)); // previews of the Dock get their own
    leave(1);
    open(0);
    EXPECT_FALSE(engine().shouldInterceptClick(true, false)); // beside them
    const QRectF frame = preview(0).window()->frame();
    movePointerTo(preview(0));
    loop.advance(0.1);
    desk.movePointer(frame.topLeft() + preview(0).closeButtonFrame().center());
    EXPECT_TRUE(engine().shouldInterceptClick(false, false)); // a release does nothing
    loop.advance(0.6);
    EXPECT_EQ(shown(), both);
    EXPECT_TRUE(engine().shouldInterceptClick(true, false));
    loop.advance(0.6);
    EXPECT_EQ(shown(), u"Notes 1"_s);
    EXPECT_EQ(desk.activeApplication(), maps);

    movePointerTo(preview(0));
    EXPECT_TRUE(engine().shouldInterceptClick(true, false));
    loop.runUntilIdle();
    EXPECT_EQ(desk.activeApplication(), notes);
    settings().showInTab = 0;
    EXPECT_FALSE(engine().shouldInterceptClick(true, false));
}

TEST_F(Switcher, activation_sparesItsRow_whereItClosesThatOfADockItem)
{
    settings().closeOnClick = 1;
    open(0);
    desk.activateApplication(notes);
    loop.runUntilIdle();
    EXPECT_EQ(shown(), both);
}

TEST_F(Switcher, mouseLeavingAnything_endsNothingWhileTheSwitcherIsWatched)
{
    open(0);
    hover(u"Trash"_s);
    EXPECT_EQ(shown(), u""_s);
    open(0);
    leave(5);
    EXPECT_EQ(shown(), both);
    hover(u"Notes"_s); // the same application, but now for the Dock
    loop.advance(0.1);
    EXPECT_EQ(shown(), both);
    EXPECT_FALSE(preview(0).setByTab());
}

} // namespace
} // namespace lumbrix::test
