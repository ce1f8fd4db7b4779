// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/BubbleWrapper.h"
#include "tests/preview/PanelFixture.h"

namespace lumbrix::test
{
namespace
{

class Bubble : public PanelFixture
{
protected:
    Bubble() { wrapper.setShouldBubbleWrap(true); }

    std::vector<ScreenyViewPtr> row(int count)
    {
        std::vector<ScreenyViewPtr> previews;
        for (int i = 0; i < count; ++i)
            previews.push_back(preview(QRectF(100.5 + 200 * i, 110, 200, 150)));
        return previews;
    }
    const DBOverlayWindow& panel() const { return wrapper.bubble()->window(); }

    BubbleWrapper wrapper{ports()};
};

TEST_F(Bubble, frame_isAroundTheRowAndNotSymmetric)
{
    wrapper.positionAndShowBubble(row(1));
    EXPECT_EQ(panel().frame(), QRectF(101.5, 108, 208, 151));
    std::vector<ScreenyViewPtr> five = row(5);
    wrapper.positionAndShowBubble(five);
    EXPECT_EQ(panel().frame(), QRectF(101.5, 108, 1008, 151));
    std::reverse(five.begin(), five.end()); // as a column at the side of the screen runs
    wrapper.positionAndShowBubble(five);
    EXPECT_EQ(panel().frame(), QRectF(101.5, 108, 1008, 151));
    EXPECT_TRUE(panel().clickThrough());
    EXPECT_TRUE(panel().windowFlags() & Qt::WindowDoesNotAcceptFocus);
    EXPECT_EQ(panel().windowRole(), u"bubble"_s);
}

// A dark shape behind light panels looks like dirt.
TEST_F(Bubble, colour_isThatOfTheRowsStyle)
{
    const auto lightness = [this](const QString& style) {
        wrapper.positionAndShowBubble({preview({0, 0, 243, 190}, 1, style)});
        return panel().overlayColor().lightness();
    };
    EXPECT_GT(lightness(u"ScreenyView"_s), 200);
    EXPECT_EQ(lightness(u"ScreenyViewBlack"_s), 0);
    EXPECT_GT(lightness(u"ScreenyViewBlue"_s), 0);
}

// What stuck out of its screen lay on the next one.
TEST_F(Bubble, frame_aroundARowAsLongAsItsScreen_staysOnThatScreen)
{
    desk.with([](SimulatedState& state) {
        state.screens = {{0, 0, 1440, 900}, {1440, 0, 1280, 1024}, {-1000, 0, 1000, 900}};
    });
    wrapper.positionAndShowBubble(
        {preview(QRectF(0, 110, 720, 150)), preview(QRectF(720, 110, 720, 150))});
    EXPECT_EQ(panel().frame(), QRectF(1, 108, 1439, 151));
    wrapper.positionAndShowBubble({preview(QRectF(-1000, 0, 1000, 150))});
    EXPECT_EQ(panel().frame(), QRectF(-999, 0, 999, 149));
}

// One that comes a moment before its row, or stays a moment longer, is seen as a flash.
TEST_F(Bubble, panel_comesAndGoesWithTheRow)
{
    const std::vector<ScreenyViewPtr> previews = row(2);
    wrapper.positionAndShowBubble(previews);
    EXPECT_FALSE(isOnScreen(panel())) << "before the row";
    for (const ScreenyViewPtr& each : previews) {
        each->setHeld(true);
        each->orderFront();
    }
    EXPECT_FALSE(isOnScreen(panel())) << "while the row is held";
    previews[0]->setHeld(false);
    EXPECT_TRUE(isOnScreen(panel()));
    previews[1]->setHeld(false);

    previews[0]->dismissWithoutRebirth();
    EXPECT_TRUE(isOnScreen(panel()));
    previews[1]->dismissWithoutRebirth();
    EXPECT_FALSE(isOnScreen(panel())) << "alone";
    previews[0]->orderFront();
    EXPECT_TRUE(isOnScreen(panel())) << "with the next row";
    wrapper.hideBubble();
    loop.runUntilIdle();
    previews[1]->orderFront();
    EXPECT_FALSE(panel().isFront());
}

TEST_F(Bubble, dismissedAndShownInOnePass_stays)
{
    const std::vector<ScreenyViewPtr> previews = row(2);
    wrapper.positionAndShowBubble(previews);
    previews[0]->orderFront();
    wrapper.hideBubble();
    EXPECT_TRUE(isOnScreen(panel())) << "only in the next pass";
    wrapper.positionAndShowBubble(previews);
    loop.runUntilIdle();
    EXPECT_TRUE(isOnScreen(panel()));
    wrapper.positionAndShowBubble({});
    loop.runUntilIdle();
    EXPECT_FALSE(isOnScreen(panel()));
}

TEST_F(Bubble, turnedOff_isGoneAndCostsNothing)
{
    const std::vector<ScreenyViewPtr> previews = row(1);
    BubbleWrapper off(ports());
    off.positionAndShowBubble(previews);
    off.hideBubble();
    EXPECT_FALSE(off.bubble());

    wrapper.positionAndShowBubble(previews);
    previews[0]->orderFront();
    wrapper.setShouldBubbleWrap(false);
    loop.runUntilIdle();
    wrapper.positionAndShowBubble(previews);
    EXPECT_FALSE(panel().isFront());
}

} // namespace
} // namespace lumbrix::test
