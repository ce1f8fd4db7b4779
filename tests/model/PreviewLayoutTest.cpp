// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "model/PreviewLayout.h"

namespace lumbrix::PreviewLayout
{

static void PrintTo(DockSide side, std::ostream* out) { *out << static_cast<int>(side); }

namespace
{

using Frames = std::vector<QRectF>;

Input input(const QRectF& icon, float width = 300, float height = 200)
{
    return {icon, {1440, 900}, width, height, 10};
}

TEST(PreviewLayout, row_isCentredOnTheIcon_sixPointsToTheLeft)
{
    EXPECT_EQ(strip(DockSide::Bottom, input({700, 848, 48, 48}), 3),
              (Frames{{268, 62, 300, 200}, {568, 62, 300, 200}, {868, 62, 300, 200}}));
    EXPECT_TRUE(strip(DockSide::Bottom, input({700, 848, 48, 48}), 0).empty());
}

TEST(PreviewLayout, row_staysOnTheScreen)
{
    EXPECT_EQ(strip(DockSide::Bottom, input({20, 848, 48, 48}), 2),
              (Frames{{0, 62, 300, 200}, {300, 62, 300, 200}}));
    EXPECT_EQ(strip(DockSide::Bottom, input({1380, 848, 48, 48}), 2),
              (Frames{{840, 62, 300, 200}, {1140, 62, 300, 200}}));
    // Without an item the row is placed as if that were the top left corner.
    EXPECT_EQ(strip(DockSide::Bottom, input({}), 1), (Frames{{0, 910, 300, 200}}));
}

TEST(PreviewLayout, rowLongerThanTheScreenLessItsMargin_fillsTheWholeScreen)
{
    const Frames full = strip(DockSide::Bottom, input({100, 848, 48, 48}), 5);
    ASSERT_EQ(full.size(), 5U);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(full[static_cast<std::size_t>(i)], QRectF(288 * i, 62, 288, 192));

    // 1390 points still fit, and are clamped like any other row.
    const Frames fitting = strip(DockSide::Bottom, input({1380, 848, 48, 48}, 278, 100), 5);
    EXPECT_EQ(fitting.front(), QRectF(50, 62, 278, 100));

    // A calendar is as large as it likes, but shrinks in the proportions of the settings.
    const Frames calendar = strip(DockSide::Bottom, input({700, 848, 48, 48}), 1, QSizeF(320, 480));
    EXPECT_EQ(calendar, (Frames{{558, 62, 320, 480}}));
    const Frames wide = strip(DockSide::Bottom, input({700, 848, 48, 48}), 4, QSizeF(400, 700));
    EXPECT_EQ(wide.front(), QRectF(0, 62, 360, 240));
}

TEST(PreviewLayout, column_runsDownBesideTheIcon_belowTheMenuBar)
{
    EXPECT_EQ(strip(DockSide::Left, input({4, 426, 48, 48}), 2),
              (Frames{{62, 456, 300, 200}, {62, 256, 300, 200}}));
    EXPECT_EQ(strip(DockSide::Right, input({1388, 426, 48, 48}), 2),
              (Frames{{1078, 456, 300, 200}, {1078, 256, 300, 200}}));
    EXPECT_EQ(strip(DockSide::Left, input({4, 30, 48, 48}), 2).front(),
              QRectF(62, 900 - 22 - 200, 300, 200));
    EXPECT_EQ(strip(DockSide::Left, input({4, 850, 48, 48}), 2).back(), QRectF(62, 0, 300, 200));
    EXPECT_EQ(strip(DockSide::Left, input({}), 1).front(), QRectF(10, 678, 300, 200));
}

TEST(PreviewLayout, columnLongerThanTheScreen_shrinksAsAWhole)
{
    // 878 points are left below the menu bar; the width that shrinks with them moves a column that
    // hangs to the left of its icon.
    for (const DockSide side : {DockSide::Left, DockSide::Right}) {
        const bool isLeft = side == DockSide::Left;
        const Frames frames = strip(side, input({isLeft ? 4.0 : 1388.0, 426, 48, 48}), 8);
        ASSERT_EQ(frames.size(), 8U);
        EXPECT_EQ(frames[0], QRectF(isLeft ? 62 : 1388 - 10 - 164.625, 768.25, 164.625, 109.75));
        EXPECT_EQ(frames[7].y(), 0);
    }
    EXPECT_EQ(strip(DockSide::Left, input({4, 426, 48, 48}, 300, 219.5F), 4).front().width(), 300);
}

TEST(PreviewLayout, sample_isPlacedBesideTheIcon_unshiftedInARow)
{
    EXPECT_EQ(sample(DockSide::Bottom, input({700, 848, 48, 48})), QRectF(574, 62, 300, 200));
    EXPECT_EQ(sample(DockSide::Bottom, input({20, 848, 48, 48})), QRectF(0, 62, 300, 200));
    EXPECT_EQ(sample(DockSide::Bottom, input({1380, 848, 48, 48})), QRectF(1140, 62, 300, 200));
    EXPECT_EQ(sample(DockSide::Left, input({4, 426, 48, 48})), QRectF(62, 356, 300, 200));
    EXPECT_EQ(sample(DockSide::Right, input({1388, 40, 48, 48})), QRectF(1078, 678, 300, 200));
    EXPECT_EQ(sample(DockSide::Right, input({1388, 880, 48, 48})), QRectF(1078, 0, 300, 200));
}

TEST(PreviewLayout, dockSide_isKnownForThreeWordsOnly)
{
    EXPECT_EQ(dockSideForOrientation(QStringLiteral("bottom")), DockSide::Bottom);
    EXPECT_EQ(dockSideForOrientation(QStringLiteral("left")), DockSide::Left);
    EXPECT_EQ(dockSideForOrientation(QStringLiteral("right")), DockSide::Right);
    EXPECT_EQ(dockSideForOrientation(QStringLiteral("top")), std::nullopt);
}

} // namespace
} // namespace lumbrix::PreviewLayout
