// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A panel with window buttons at the top and Plank at the bottom, which tells all windows that
// their icons are on it.
#include "DesktopTest.h"
#include "platform/StringLiterals.h"

namespace lumbrix::privatedesk
{

class TwoDocksTest : public DesktopTest
{
protected:
    /// The middle of the panel's button of that number, as the panel lays them out.
    void hoverButton(int number)
    {
        constexpr int handle = 8;
        constexpr int breadth = 200;
        display().moveTo(QPoint(handle + breadth * number + breadth / 2, 20));
    }
    bool isIconOnPlank(const AppWindow& window)
    {
        const auto place = display().numbers(window.id, "_NET_WM_ICON_GEOMETRY");
        return place.size() == 4 && place[1] > 900;
    }
};

INSTANTIATE_TEST_SUITE_P(, TwoDocksTest, testing::Values(panelAndPlank()), deskName);

TEST_P(TwoDocksTest, buttonAndIcon_hoveredInTurn_showTheSameWindows)
{
    Application& alpha = launch(u"alpha"_s, 2);
    Application& beta = launch(u"beta"_s, 1);
    // Lumbrix comes when the windows know of their icons on Plank only.
    desk().dock().kill();
    desk().dock().restart();
    for (const Application* application : {&alpha, &beta})
        for (const AppWindow& window : application->windows())
            ASSERT_TRUE(waitUntil([&] { return isIconOnPlank(window); }));
    desk().startLumbrixAgain(alpha);
    for (int i = 0; i < 2; ++i) {
        hoverButton(0);
        ASSERT_TRUE(shows(alpha));
        hoverButton(1);
        ASSERT_TRUE(shows(beta));
        hover(alpha);
        ASSERT_TRUE(shows(alpha));
        hover(beta);
        ASSERT_TRUE(shows(beta));
    }
    desk().park();
    ASSERT_TRUE(showsNothing());

    Application& gamma = launch(u"gamma"_s, 1);
    alpha.open("a third one", Qt::white);
    hoverButton(0);
    EXPECT_TRUE(shows(alpha));
    hoverButton(2);
    EXPECT_TRUE(shows(gamma));
    gamma.setTitle(gamma.windows().front(), "called otherwise");
    EXPECT_TRUE(shows(gamma)) << "under the pointer";
    desk().park();
    ASSERT_TRUE(showsNothing());
    beta.destroy(beta.windows().front());
    hoverButton(1);
    EXPECT_TRUE(shows(gamma)) << "the buttons have moved up";
    hover(gamma);
    EXPECT_TRUE(shows(gamma));
    hoverButton(2);
    EXPECT_TRUE(showsNothing()) << "there is no button any more";
}

/// A Plank with two docks, one at the bottom and one on the left.
class SecondDockTest : public DesktopTest
{
};

INSTANTIATE_TEST_SUITE_P(, SecondDockTest,
                         testing::Values(DeskOptions{
                             .name = "plank_twice", .session = {}, .secondEdge = Edge::Left}),
                         deskName);

TEST_P(SecondDockTest, icons_ofBothDocks_haveTheirPreviewsAndCountsBesideThem)
{
    desk().startLumbrix({{u"badgeDock"_s, u"1"_s}});
    const Application& alpha = launch(u"alpha"_s, 2);
    const auto below = desk().iconOf(alpha);
    const auto left = desk().iconOnSecondDock(alpha);
    ASSERT_TRUE(below && left);
    const auto isCounted = [&](QPoint icon) {
        return std::ranges::any_of(display().badges(), [&](const Panel& badge) {
            return QRect(icon - QPoint(36, 36), QSize(72, 72)).contains(badge.geometry.center());
        });
    };
    EXPECT_TRUE(waitUntil([&] { return isCounted(*below) && isCounted(*left); }));
    for (int round = 0; round < 2; ++round) {
        display().moveTo(*below);
        EXPECT_TRUE(waitUntil([&] {
            return row().bottom() < below->y() && row().left() < below->x() &&
                   below->x() < row().right() && row().width() > row().height();
        }));
        EXPECT_TRUE(shows(alpha));
        display().moveTo(*left);
        EXPECT_TRUE(waitUntil([&] {
            return row().left() > left->x() && row().top() < left->y() &&
                   left->y() < row().bottom() && row().height() > row().width();
        }));
        EXPECT_TRUE(shows(alpha));
    }
}

} // namespace lumbrix::privatedesk
