// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Rows that other programs ask for, which come and stay without the mouse.

#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

using Answer = platform::PreviewRequests::Answer;

/// Items of the simulated Dock stand for the places that programs choose; "Place" is another one
/// for Notes. The mouse is in the middle of the screen.
class RequestedRowTest : public EngineFixture
{
protected:
    RequestedRowTest()
    {
        add(u"Notes"_s, 2);
        add(u"Maps"_s, 1);
        desk.addDockItem({.title = u"Place"_s, .url = desk.with([](SimulatedState& state) {
                              return state.dockItems[0].url;
                          })});
        desk.movePointer(middle);
    }

    Answer ask(const QString& item)
    {
        const Answer answer = desk.previewRequests().host().show(desk.dockItem(item));
        loop.runUntilIdle();
        return answer;
    }
    /// Windows by title, in this order, instead of the application's.
    void choose(const QString& item, const QStringList& titles)
    {
        std::vector<WindowID> chosen;
        for (const QString& title : titles)
            chosen.push_back(idOf(title));
        desk.with([&](SimulatedState& state) {
            std::ranges::find(state.dockItems, item, &SimulatedDockItem::title)->chosen = chosen;
        });
    }
    /// How many rows have ended, the last one being this item's.
    int ended(const QString& item)
    {
        const auto& all = desk.previewRequests().ended;
        EXPECT_TRUE(all.empty() || platform::elementsEqual(all.back(), desk.dockItem(item)));
        return static_cast<int>(all.size());
    }
    void pressKey(std::uint32_t flags)
    {
        desk.setModifiers(flags);
        loop.advance(1);
    }

    platform::PreviewRequests::Host& host() { return desk.previewRequests().host(); }
    const QPointF middle{720, 450};
    const QString both = u"Notes 2, Notes 1"_s;
};

TEST_F(RequestedRowTest, row_staysWithoutTheMouse_untilThatHasBeenThereAndLeaves)
{
    ASSERT_EQ(ask(u"Notes"_s), Answer::Accepted);
    EXPECT_EQ(shown(), both);
    // Elsewhere it may go where it likes, also over an icon without resting there.
    desk.hoverDockItem(u"Maps"_s);
    loop.advance(0.01);
    leave(5);
    EXPECT_EQ(shown(), both);
    movePointerTo(preview(0));
    preview(0).mouseEntered();
    loop.advance(5);
    EXPECT_EQ(shown(), both);
    EXPECT_EQ(ended(u"Notes"_s), 0);
    desk.movePointer(middle);
    preview(0).mouseExited();
    loop.advance(0.2);
    EXPECT_EQ(shown(), u""_s);
    EXPECT_EQ(ended(u"Notes"_s), 1);

    // On the item itself it is not seen by the engine, which is told.
    settings().exitDelay = 0.5F;
    ask(u"Notes"_s);
    host().mouseLeft(desk.dockItem(u"Notes"_s));
    loop.advance(0.4);
    EXPECT_EQ(shown(), both);
    loop.advance(0.2);
    EXPECT_EQ(shown(), u""_s);
    EXPECT_EQ(ended(u"Notes"_s), 2);
    EXPECT_TRUE(isAtRest());
}

// The panel leaves the mouse, not the mouse the panel. And what was under way for the mouse must
// not come later in the place of what was asked for.
TEST_F(RequestedRowTest, row_thatReplacesOneUnderARestingMouse_stays)
{
    settings().exitDelay = 0.5F;
    hover(u"Notes"_s);
    movePointerTo(preview(0));
    ScreenyView& hovered = preview(0);
    ASSERT_EQ(ask(u"Maps"_s), Answer::Accepted);
    hovered.mouseExited();
    loop.advance(5);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    host().hide(desk.dockItem(u"Maps"_s));
    EXPECT_EQ(panelsOnScreen(), 0);

    hover(u"Notes"_s);
    leave(0.2); // its exit delay runs
    ask(u"Maps"_s);
    loop.advance(5);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    delays.delay = 1;
    desk.hoverDockItem(u"Notes"_s);
    loop.advance(0.5);
    ask(u"Maps"_s);
    loop.advance(5);
    EXPECT_EQ(shown(), u"Maps 1"_s);
}

TEST_F(RequestedRowTest, everyEnd_isToldOnce)
{
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"hidden", [&] { host().hide(desk.dockItem(u"Place"_s)); }},
        {"its caller has gone", [&] { host().abandon(desk.dockItem(u"Place"_s)); }},
        {"another icon",
         [&] {
             hover(u"Maps"_s);
             loop.advance(1);
         }},
        {"no application's icon", [&] { hover(u"Trash"_s); }},
        {"menu", [&] { desk.openDockMenu(); }},
        {"all rows hidden", [&] { engine().removeAllScreenViews(); }},
        {"turned off",
         [&] {
             settings().disabled = 1;
             engine().settingsDidChange();
             settings().disabled = 0;
         }},
        {"another icon of its application", [&] { hover(u"Notes"_s); }},
        {"no window left",
         [&] {
             for (const WindowID window : desk.stacking())
                 desk.closeWindow(window);
         }},
    };
    int count = 0;
    for (const auto& [name, end] : ends) {
        SCOPED_TRACE(name);
        ASSERT_EQ(ask(u"Place"_s), Answer::Accepted);
        ASSERT_EQ(shown(), both);
        ASSERT_EQ(ended(u"Place"_s), count);
        end();
        loop.advance(2);
        EXPECT_EQ(ended(u"Place"_s), ++count);
        leave(1);
        EXPECT_EQ(shown(), u""_s);
        EXPECT_EQ(ended(u"Place"_s), count);
    }
}

TEST_F(RequestedRowTest, secondRequest_endsTheFirst_whichHasNoSayAnyMore)
{
    ask(u"Notes"_s);
    ASSERT_EQ(ask(u"Maps"_s), Answer::Accepted);
    EXPECT_EQ(ended(u"Notes"_s), 1);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    for (const auto& late :
         {&platform::PreviewRequests::Host::hide, &platform::PreviewRequests::Host::abandon,
          &platform::PreviewRequests::Host::mouseLeft})
        (host().*late)(desk.dockItem(u"Notes"_s));
    loop.advance(2);
    EXPECT_EQ(shown(), u"Maps 1"_s);
    EXPECT_EQ(ended(u"Notes"_s), 1);
}

// Its caller goes, or the preview goes from under the mouse: a panel that is taken off the screen
// tells nothing of the mouse.
TEST_F(RequestedRowTest, row_underTheMouse_staysUntilThatLeaves_whateverGoes)
{
    const std::pair<std::function<void()>, QString> cases[] = {
        {[&] { host().abandon(desk.dockItem(u"Notes"_s)); }, both},
        {[&] { desk.closeWindow(idOf(u"Notes 1"_s)); }, u"Notes 2"_s},
    };
    int count = 0;
    for (const auto& [go, left] : cases) {
        ask(u"Notes"_s);
        movePointerTo(preview(1));
        preview(1).mouseEntered();
        go();
        loop.advance(0.6);
        EXPECT_EQ(shown(), left);
        desk.movePointer(middle);
        loop.advance(2);
        EXPECT_EQ(shown(), u""_s);
        EXPECT_EQ(ended(u"Notes"_s), ++count);
    }
}

TEST_F(RequestedRowTest, refusal_saysWhy_andLeavesEverythingAsItIs)
{
    add(u"Empty"_s, 0);
    ask(u"Notes"_s);
    EXPECT_EQ(ask(u"Empty"_s), Answer::NothingToShow);
    settings().ignoreOneWindow = 1;
    EXPECT_EQ(ask(u"Maps"_s), Answer::NothingToShow);
    settings().showInDock = 0;
    EXPECT_EQ(ask(u"Maps"_s), Answer::Disabled);
    settings().showInDock = 1;
    settings().disabled = 1;
    EXPECT_EQ(ask(u"Maps"_s), Answer::Disabled);
    EXPECT_EQ(shown(), both);
    EXPECT_EQ(ended(u"Notes"_s), 0);
}

TEST_F(RequestedRowTest, rowThatWaitsForAKey_comesWithIt)
{
    settings().onlyIfPressed = 1;
    settings().onlyIfKeycode = 1;
    ASSERT_EQ(ask(u"Notes"_s), Answer::Accepted);
    loop.advance(2);
    EXPECT_EQ(shown(), u""_s);
    pressKey(option);
    EXPECT_EQ(shown(), both);
    pressKey(0);
    EXPECT_EQ(shown(), u""_s);
    pressKey(option);
    EXPECT_EQ(shown(), both);
    EXPECT_EQ(ended(u"Notes"_s), 0);
    host().hide(desk.dockItem(u"Notes"_s));
    EXPECT_EQ(ended(u"Notes"_s), 1);
}

TEST_F(RequestedRowTest, chosenWindows_areAllThatIsShown_inTheirOrder)
{
    settings().ignoreOneWindow = 1; // is about applications
    choose(u"Place"_s, {u"Notes 1"_s});
    ASSERT_EQ(ask(u"Place"_s), Answer::Accepted);
    loop.advance(2);
    EXPECT_EQ(shown(), u"Notes 1"_s);
    choose(u"Place"_s, {u"Maps 1"_s, u"Notes 1"_s});
    ask(u"Place"_s);
    loop.advance(2);
    EXPECT_EQ(shown(), u"Maps 1, Notes 1"_s);
    settings().ignoreMinimized = 1;
    desk.minimizeWindow(idOf(u"Maps 1"_s));
    loop.advance(2);
    EXPECT_EQ(shown(), u"Notes 1"_s);
    EXPECT_EQ(ended(u"Place"_s), 1);
    // For the application as a whole elsewhere: the row is no part of that.
    ask(u"Notes"_s);
    EXPECT_EQ(shown(), both);
}

} // namespace
} // namespace lumbrix::test
