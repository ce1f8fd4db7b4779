// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where the row goes while the icon it stands for is still moving, and when it has moved.

#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

class StripArrangerTest : public EngineFixture
{
protected:
    /// Has the Dock move its first icon every 0.02 seconds, so many times.
    void slideIcon(int steps)
    {
        loop.detachThread("dock", [this, steps](const platform::Thread& self) {
            for (int i = 0; i < steps && !self.isCancelled(); ++i) {
                loop.sleep(0.02);
                desk.with(
                    [](SimulatedState& state) { state.dockItems.front().frame.translate(0.5, 0); });
            }
        });
    }
};

TEST_F(StripArrangerTest, iconThatMoves_isWaitedFor_whereItMayMove_butNotForEver)
{
    add(u"Notes"_s, 1);
    const struct {
        std::optional<int> magnification;
        std::optional<int> autohide;
        int steps;
        double waited;
    } cases[] = {{1, 0, 10, 0.24}, {std::nullopt, 1, 10, 0.24},
                 {1, 1, 0, 0.03},  {2, std::nullopt, 10, 0},
                 {0, 2, 10, 0},    {0, 1, 2000, 29 * 0.03}};
    for (const auto& [magnification, autohide, steps, waited] : cases) {
        SCOPED_TRACE(testing::Message()
                     << magnification.value_or(-1) << " " << autohide.value_or(-1) << " " << steps);
        desk.setDockFlags(magnification, autohide);
        const double start = loop.now();
        slideIcon(steps);
        hover(u"Notes"_s);
        ASSERT_EQ(shown(), u"Notes 1"_s);
        EXPECT_NEAR(loop.now() - start, waited, 1e-6);
        EXPECT_EQ(preview(0).window()->frame().center().x(),
                  desk.dockItemFrame(u"Notes"_s).center().x() - 6);
        leave(1);
        desk.setDockEdge(DockEdge::Bottom); // puts the icon back
    }
    desk.dockPreferences().areFinal = true;
    const double start = loop.now();
    hover(u"Notes"_s);
    EXPECT_EQ(shown(), u"Notes 1"_s);
    EXPECT_EQ(loop.now(), start) << "there is nothing to wait for";
}

// It used to stay where a dock had been that went to another edge or re-sorted its buttons.
TEST_F(StripArrangerTest, iconThatHasMoved_isFollowed_butNotFromUnderTheMouse)
{
    add(u"Notes"_s, 1);
    hover(u"Notes"_s);
    const QPointF place = preview(0).window()->frame().topLeft();
    const auto move = [&](double x) {
        desk.with([x](SimulatedState& state) { state.dockItems.front().frame.translate(x, 0); });
        desk.tellDockItemsChanged();
        loop.runUntilIdle();
    };
    move(20);
    EXPECT_EQ(preview(0).window()->frame().topLeft(), place + QPointF(20, 0));
    movePointerTo(preview(0));
    move(20);
    EXPECT_EQ(preview(0).window()->frame().topLeft(), place + QPointF(20, 0));
    leave(1);
    move(20); // no row to take along
    EXPECT_EQ(shown(), QString());
}

// A row could be left over on a screen that none had been shown on.
TEST_F(StripArrangerTest, screensThatChange_leaveARowBesideAnIconUnderTheMouseAlone)
{
    add(u"Notes"_s, 1);
    const QRectF screen = desk.with([](SimulatedState& state) { return state.screens.front(); });
    const auto setScreens = [&](std::vector<QRectF> screens) {
        desk.with([&](SimulatedState& state) { state.screens = std::move(screens); });
        desk.tellScreensChanged();
        loop.runUntilIdle();
    };
    settings().neverClose = 1;
    hover(u"Notes"_s);
    const QRectF place = preview(0).window()->frame();
    setScreens({screen, screen.translated(screen.width(), 0)});
    EXPECT_EQ(shown(), u"Notes 1"_s);
    EXPECT_EQ(preview(0).window()->frame(), place);
    setScreens({screen.adjusted(0, 0, 0, -200)});
    EXPECT_EQ(shown(), QString()) << "the icon is on none";

    leave();
    setScreens({screen});
    settings().neverClose = 0;
    hover(u"Notes"_s);
    ASSERT_EQ(shown(), u"Notes 1"_s);
    desk.with([](SimulatedState& state) { state.pointer = {700, 700}; });
    setScreens({screen});
    loop.advance(0.1);
    EXPECT_EQ(shown(), QString()) << "the mouse has been put elsewhere";
}

} // namespace
} // namespace lumbrix::test
