// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Two docks at once.
#include "DesktopTest.h"
#include "platform/StringLiterals.h"

namespace lumbrix::privatedesk
{

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
