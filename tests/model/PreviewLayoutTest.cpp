// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "model/PreviewLayout.h"

namespace lumbrix::PreviewLayout
{

namespace
{

using Frames = std::vector<QRectF>;

Input input(const QRectF& icon, float width = 300, float height = 200)
{
    return {icon, {0, 0, 1440, 900}, 900, width, height, 10};
}

TEST(PreviewLayout, row_isCentredOnTheIcon_sixPointsToTheLeft)
{
    EXPECT_EQ(strip(DockEdge::Bottom, input({700, 848, 48, 48}), 3),
              (Frames{{268, 62, 300, 200}, {568, 62, 300, 200}, {868, 62, 300, 200}}));
    EXPECT_TRUE(strip(DockEdge::Bottom, input({700, 848, 48, 48}), 0).empty());
}

TEST(PreviewLayout, row_staysOnTheScreen)
{
    EXPECT_EQ(strip(DockEdge::Bottom, input({20, 848, 48, 48}), 2),
              (Frames{{0, 62, 300, 200}, {300, 62, 300, 200}}));
    EXPECT_EQ(strip(DockEdge::Bottom, input({1380, 848, 48, 48}), 2),
              (Frames{{840, 62, 300, 200}, {1140, 62, 300, 200}}));
    // Without an item the row is placed as if that were the top left corner.
    EXPECT_EQ(strip(DockEdge::Bottom, input({}), 1), (Frames{{0, 910, 300, 200}}));
}

TEST(PreviewLayout, rowLongerThanTheScreenLessItsMargin_fillsTheWholeScreen)
{
    const Frames full = strip(DockEdge::Bottom, input({100, 848, 48, 48}), 5);
    ASSERT_EQ(full.size(), 5U);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(full[static_cast<std::size_t>(i)], QRectF(288 * i, 62, 288, 192));

    // 1390 points still fit, and are clamped like any other row.
    const Frames fitting = strip(DockEdge::Bottom, input({1380, 848, 48, 48}, 278, 100), 5);
    EXPECT_EQ(fitting.front(), QRectF(50, 62, 278, 100));

    // A calendar is as large as it likes, but shrinks in the proportions of the settings.
    const Frames calendar = strip(DockEdge::Bottom, input({700, 848, 48, 48}), 1, QSizeF(320, 480));
    EXPECT_EQ(calendar, (Frames{{558, 62, 320, 480}}));
    const Frames wide = strip(DockEdge::Bottom, input({700, 848, 48, 48}), 4, QSizeF(400, 700));
    EXPECT_EQ(wide.front(), QRectF(0, 62, 360, 240));
}

// At twice the scale a screen of 1280x800 has 400 points, and a large preview more.
TEST(PreviewLayout, previewsLargerThanTheRoomBesideTheIcon_shrinkToIt)
{
    const QRectF screen(0, 0, 640, 400);
    const auto frames = [&](DockEdge edge, const QRectF& icon) {
        return strip(edge, {icon, screen, 400, 600, 450, 10}, 1);
    };
    EXPECT_EQ(frames(DockEdge::Bottom, {300, 352, 48, 48}), (Frames{{90, 58, 456, 342}}));
    EXPECT_EQ(frames(DockEdge::Top, {300, 0, 48, 48}), (Frames{{90, 0, 456, 342}}));
    for (const DockEdge edge : {DockEdge::Left, DockEdge::Right}) {
        const Frames one = frames(edge, {edge == DockEdge::Left ? 0.0 : 592.0, 170, 48, 48});
        EXPECT_TRUE(screen.contains(one.front())) << one.front().x() << " " << one.front().width();
    }
}

TEST(PreviewLayout, column_runsDownBesideTheIcon_belowTheMenuBar)
{
    EXPECT_EQ(strip(DockEdge::Left, input({4, 426, 48, 48}), 2),
              (Frames{{62, 456, 300, 200}, {62, 256, 300, 200}}));
    EXPECT_EQ(strip(DockEdge::Right, input({1388, 426, 48, 48}), 2),
              (Frames{{1078, 456, 300, 200}, {1078, 256, 300, 200}}));
    EXPECT_EQ(strip(DockEdge::Left, input({4, 30, 48, 48}), 2).front(),
              QRectF(62, 900 - 22 - 200, 300, 200));
    EXPECT_EQ(strip(DockEdge::Left, input({4, 850, 48, 48}), 2).back(), QRectF(62, 0, 300, 200));
    EXPECT_EQ(strip(DockEdge::Left, input({}), 1).front(), QRectF(10, 678, 300, 200));
}

TEST(PreviewLayout, columnLongerThanTheScreen_shrinksAsAWhole)
{
    // 878 points are left below the menu bar; the width that shrinks with them moves a column that
    // hangs to the left of its icon.
    for (const DockEdge edge : {DockEdge::Left, DockEdge::Right}) {
        const bool isLeft = edge == DockEdge::Left;
        const Frames frames = strip(edge, input({isLeft ? 4.0 : 1388.0, 426, 48, 48}), 8);
        ASSERT_EQ(frames.size(), 8U);
        EXPECT_EQ(frames[0], QRectF(isLeft ? 62 : 1388 - 10 - 164.625, 768.25, 164.625, 109.75));
        EXPECT_EQ(frames[7].y(), 0);
    }
    EXPECT_EQ(strip(DockEdge::Left, input({4, 426, 48, 48}, 300, 219.5F), 4).front().width(), 300);
}

// The mirror of a bottom Dock: the row hangs below the icon.
TEST(PreviewLayout, rowAtTheTop_mirrorsTheOneAtTheBottom)
{
    const QRectF icon(700, 2, 48, 48);
    const QRectF mirrored(700, 850, 48, 48);
    for (const int count : {1, 3, 5, 15}) {
        const Frames top = strip(DockEdge::Top, input(icon), count);
        const Frames bottom = strip(DockEdge::Bottom, input(mirrored), count);
        ASSERT_EQ(top.size(), bottom.size());
        for (std::size_t i = 0; i < top.size(); ++i)
            EXPECT_EQ(top[i], QRectF(bottom[i].x(), 900 - bottom[i].y() - bottom[i].height(),
                                     bottom[i].width(), bottom[i].height()));
    }
    EXPECT_EQ(strip(DockEdge::Top, input(icon), 3).front(), QRectF(268, 640, 300, 200));
    EXPECT_EQ(sample(DockEdge::Top, input(icon)), QRectF(574, 640, 300, 200));
    EXPECT_EQ(strip(DockEdge::Top, input(icon), 1, QSizeF(320, 480)).front(),
              QRectF(558, 360, 320, 480));
}

// The second monitor may lie anywhere beside the main one, which is where screen coordinates have
// their origin.
TEST(PreviewLayout, strips_stayOnTheScreenOfTheirIcon)
{
    struct Case {
        QRectF screen;
        DockEdge edge;
        QRectF icon;
    };
    const QRectF main(0, 0, 1440, 900);
    const Case cases[] = {
        {{1440, 0, 1280, 1024}, DockEdge::Bottom, {1450, 980, 40, 40}},
        {{1440, 0, 1280, 1024}, DockEdge::Bottom, {2670, 980, 40, 40}},
        {{1440, -200, 1280, 1024}, DockEdge::Right, {2680, -190, 40, 40}},
        {{-1280, 300, 1280, 1024}, DockEdge::Left, {-1280, 1270, 40, 40}},
        {{-1280, 300, 1280, 1024}, DockEdge::Top, {-60, 300, 40, 40}},
        {{200, -800, 1000, 800}, DockEdge::Bottom, {210, -40, 40, 40}},
        {{200, 900, 1000, 800}, DockEdge::Top, {1150, 900, 40, 40}},
    };
    for (const Case& each : cases) {
        EXPECT_EQ(screenOfIcon(each.icon, {main, each.screen}), each.screen);
        Input in = input(each.icon);
        in.screen = each.screen;
        Frames frames = strip(each.edge, in, 3);
        const Frames eight = strip(each.edge, in, 8);
        frames.insert(frames.end(), eight.begin(), eight.end());
        frames.push_back(sample(each.edge, in));
        for (const QRectF& frame : frames) {
            const QRectF onScreen(frame.x(), 900 - frame.y() - frame.height(), frame.width(),
                                  frame.height());
            EXPECT_TRUE(each.screen.adjusted(-1e-3, -1e-3, 1e-3, 1e-3).contains(onScreen))
                << testing::PrintToString(&each - cases) << ": " << onScreen.x() << ' '
                << onScreen.y();
            EXPECT_FALSE(onScreen.intersects(each.icon));
        }
    }
    // What hangs over an edge, or lies in the gap between two, still has a screen.
    EXPECT_EQ(screenOfIcon({1400, 880, 100, 40}, {main, {1440, 0, 1280, 1024}}),
              QRectF(1440, 0, 1280, 1024));
    EXPECT_EQ(screenOfIcon({-30, 400, 10, 10}, {main, {1440, 0, 1280, 1024}}), main);
    EXPECT_EQ(screenOfIcon({}, {}), QRectF());
}

TEST(PreviewLayout, rowOfTheSwitcher_isAboveItsList_orBelow_orAtTheEdgeWithMoreRoom)
{
    struct Case {
        double top, height, rowTop;
    };
    for (const Case& each :
         {Case{350, 200, 140}, Case{200, 300, 510}, Case{200, 600, 12}, Case{140, 600, 688}}) {
        const auto frames = rowBesideSwitcher(input({400, each.top, 640, each.height}), 2);
        EXPECT_EQ(frames,
                  (Frames{{414, 700 - each.rowTop, 300, 200}, {714, 700 - each.rowTop, 300, 200}}))
            << each.top;
    }
    EXPECT_TRUE(rowBesideSwitcher(input({400, 10, 640, 800}), 0).empty());
}

TEST(PreviewLayout, sample_isPlacedBesideTheIcon_unshiftedInARow)
{
    EXPECT_EQ(sample(DockEdge::Bottom, input({700, 848, 48, 48})), QRectF(574, 62, 300, 200));
    EXPECT_EQ(sample(DockEdge::Bottom, input({20, 848, 48, 48})), QRectF(0, 62, 300, 200));
    EXPECT_EQ(sample(DockEdge::Bottom, input({1380, 848, 48, 48})), QRectF(1140, 62, 300, 200));
    EXPECT_EQ(sample(DockEdge::Left, input({4, 426, 48, 48})), QRectF(62, 356, 300, 200));
    EXPECT_EQ(sample(DockEdge::Right, input({1388, 40, 48, 48})), QRectF(1078, 678, 300, 200));
    EXPECT_EQ(sample(DockEdge::Right, input({1388, 880, 48, 48})), QRectF(1078, 0, 300, 200));
}

} // namespace
} // namespace lumbrix::PreviewLayout
