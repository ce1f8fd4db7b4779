// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// When previews go away.

#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

class DismissalTest : public EngineFixture
{
protected:
    static constexpr double tick = 0.05;
    const QString both = u"Notes 2, Notes 1"_s;

    void show()
    {
        add(u"Notes"_s, 2);
        hover(u"Notes"_s);
        ASSERT_EQ(shown(), both);
    }
    /// Just below the first preview, towards the Dock.
    QPointF gap()
    {
        const QRectF frame = preview(0).window()->frame();
        return {frame.x() + 5, frame.y() - 5};
    }
};

TEST_F(DismissalTest, gapToTheDock_isBridged_butNothingElse)
{
    show();
    for (int i = 0; i < 3; ++i) {
        desk.movePointer(gap());
        loop.advance(20 * tick);
        ASSERT_EQ(shown(), both);
        movePointerTo(preview(1));
        loop.advance(20 * tick);
        ASSERT_EQ(shown(), both);
        EXPECT_TRUE(preview(1).isHovered());
    }
    desk.movePointer({gap().x() - 10, gap().y()});
    loop.runUntilIdle();
    EXPECT_EQ(shown(), both);
    loop.advance(2 * tick); // one ends the hover of the panel that was left
    EXPECT_EQ(shown(), u""_s);
    EXPECT_EQ(engine().currentDockElement(), nullptr);
    EXPECT_FALSE(isTapOn());

    hover(u"Notes"_s);
    leave();
    EXPECT_EQ(shown(), both);
    loop.advance(tick);
    EXPECT_EQ(shown(), u""_s);
    EXPECT_EQ(panelsOnScreen(), 0);

    // With the Dock the gap is gone, too.
    hover(u"Notes"_s);
    desk.movePointer(gap());
    loop.advance(tick);
    ASSERT_EQ(shown(), both);
    desk.killDock();
    loop.advance(2 * tick);
    EXPECT_EQ(shown(), u""_s);
}

// The row stands beside a magnified icon, which shrinks as soon as the mouse is off it: the gap
// that this leaves belonged to nobody, and the row went under every mouse that was on its way.
TEST_F(DismissalTest, gap_isBridgedOnTheDocksSide_alsoWhereTheIconWasMagnified)
{
    add(u"Notes"_s, 1);
    const struct {
        DockEdge side;
        QPointF towardsDock; ///< from the middle of the preview
        QPointF half;        ///< of the preview, that way
        QMarginsF growth;    ///< of the icon, per point
    } cases[] = {{DockEdge::Bottom, {0, -1}, {0, -75}, {0, 1, 0, 0}},
                 {DockEdge::Top, {0, 1}, {0, 75}, {0, 0, 0, 1}},
                 {DockEdge::Left, {-1, 0}, {-100, 0}, {0, 0, 1, 0}},
                 {DockEdge::Right, {1, 0}, {100, 0}, {1, 0, 0, 0}}};
    for (const auto& [side, towardsDock, half, growth] : cases) {
        for (const int grown : {0, 60}) {
            SCOPED_TRACE(testing::Message() << int(side) << " " << grown);
            desk.setDockEdge(side);
            const QMarginsF larger = growth * grown;
            desk.with([&](auto& state) { state.dockItems.front().frame += larger; });
            hover(u"Notes"_s);
            ASSERT_EQ(shown(), u"Notes 1"_s);
            desk.setDockEdge(side); // at rest
            const QPointF edge = preview(0).window()->frame().center() + half;
            for (const int distance : {5, grown + 5}) {
                desk.movePointer(edge + towardsDock * distance);
                loop.advance(1);
                EXPECT_EQ(shown(), u"Notes 1"_s) << distance;
            }
            desk.movePointer(edge - half * 2 - towardsDock * 5); // on the far side
            loop.advance(1);
            EXPECT_EQ(shown(), u""_s);
        }
    }
}

TEST_F(DismissalTest, exitDelay_isAddedToTheTick_andForgottenWhenTheMouseIsBack)
{
    settings().exitDelay = 0.8F;
    show();
    leave(tick + 0.79);
    EXPECT_EQ(shown(), both);
    loop.advance(0.01);
    EXPECT_EQ(shown(), u""_s);
    EXPECT_NE(engine().currentDockElement(), nullptr); // unlike without a delay
    EXPECT_TRUE(isAtRest());

    leave();
    hover(u"Notes"_s);
    leave(0.5);
    movePointerTo(preview(0));
    loop.advance(5);
    EXPECT_EQ(shown(), both);
}

TEST_F(DismissalTest, removals_differInPanelsTapAndTimers)
{
    add(u"Notes"_s, 2);
    const struct {
        void (LXHandler::*remove)();
        int panels; ///< on screen until the next pass of the loop
        bool isFinal;
    } cases[] = {{&LXHandler::removeAllScreenViews, 2, true},
                 {&LXHandler::removeAllScreenViewsNOW, 0, true},
                 {&LXHandler::removeAllScreenViewsLeavingTimersAlone, 0, false}};
    for (const auto& [remove, panels, isFinal] : cases) {
        for (const bool byTab : {false, true}) { // each has a timer of its own beside the update's
            if (byTab) {
                desk.openSwitcher({{u"Notes"_s}});
            } else {
                hover(u"Notes"_s);
                desk.leaveDock();
            }
            loop.runUntilIdle();
            ASSERT_EQ(shown(), both);
            ASSERT_TRUE(isTapOn() && isBubbleUp());
            (engine().*remove)();
            EXPECT_EQ(shown(), u""_s);
            EXPECT_EQ(panelsOnScreen(), panels);
            EXPECT_FALSE(isBubbleUp());
            EXPECT_EQ(isTapOn(), !isFinal);
            loop.runUntilIdle();
            EXPECT_EQ(panelsOnScreen(), 0);
            EXPECT_EQ(isAtRest(), isFinal) << byTab;
            desk.closeSwitcher();
            loop.advance(1);
        }
    }
}

TEST_F(DismissalTest, movedRow_isLeftInPeaceForOneSecond)
{
    show();
    const auto windows = desk.stacking();
    movePointerTo(preview(1));
    loop.advance(0.4);
    desk.closeWindow(windows[0]);
    loop.advance(0.1); // the update drops the preview and moves the other
    EXPECT_EQ(shown(), u"Notes 1"_s);
    leave(18 * tick);
    EXPECT_EQ(shown(), u"Notes 1"_s);
    loop.advance(3 * tick);
    EXPECT_EQ(shown(), u""_s);
}

TEST_F(DismissalTest, previewsThatNeverClose_stayUntilSomethingElseEndsThem)
{
    settings().neverClose = 1;
    show();
    leave(60);
    EXPECT_EQ(shown(), both);
    const auto lag = [this](const QString& title) { // of an update, in half seconds
        desk.changeWindow(desk.stacking().front(), [&](auto& window) { window.title = title; });
        int halves = 0;
        for (; halves < 5 && !shown().contains(title); ++halves)
            loop.advance(0.5);
        return halves;
    };
    lag(u"A"_s);
    EXPECT_EQ(lag(u"B"_s), 2); // updates are slower, too
    hover(u"Trash"_s);
    EXPECT_EQ(shown(), u""_s);

    desk.openSwitcher({{u"Notes"_s}}); // its previews do not stay
    loop.runUntilIdle();
    lag(u"C"_s);
    EXPECT_EQ(lag(u"D"_s), 1);
}

TEST_F(DismissalTest, activation_closesThePreviewsOfADockItem_whereAsked)
{
    show();
    const Pid maps = add(u"Maps"_s, 1);
    desk.activateApplication(maps);
    loop.runUntilIdle();
    EXPECT_EQ(shown(), both);
    settings().closeOnClick = 1;
    desk.activateApplication(desk.ownPid());
    loop.runUntilIdle();
    EXPECT_EQ(shown(), u""_s);
}

} // namespace
} // namespace lumbrix::test
