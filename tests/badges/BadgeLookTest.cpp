// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <limits>

#include "badges/BadgeLook.h"
#include "preview/NamedImage.h"

namespace lumbrix
{
namespace
{

using namespace Qt::StringLiterals;

TEST(BadgeFrame, positions_areTheCornersAndTheMiddle)
{
    const QRectF item(100, 0, 55, 110); // from the bottom of the screen upward
    const QSizeF size(34.375, 34.375);  // too long for an icon: measured by its breadth
    const std::pair<int, QPointF> cases[] = {
        {1, {102, 110 - 34.375 - 1}},
        {2, {127.5 - 17.1875, 55 - 17.1875}},
        {3, {155 - 34.375 - 2, 1}},
        {4, {102, 1}},
        {0, {155 - 34.375 - 2, 110 - 34.375 - 1}},
        {99, {155 - 34.375 - 2, 110 - 34.375 - 1}},
    };
    for (const auto& [position, origin] : cases)
        EXPECT_EQ(badgeFrame(item, position, 0), QRectF(origin, size)) << position;
}

TEST(BadgeFrame, size_isAShareOfTheIconWithinLimits)
{
    const auto size = [](QSizeF item, float extra) {
        return badgeFrame({{10, 20}, item}, 2, extra).size();
    };
    EXPECT_EQ(size({128, 128}, 0), QSizeF(128, 128) / 2.75);
    EXPECT_EQ(size({60, 48}, 4.5F), QSizeF(60 / 2.75 + 4.5, 48 / 2.75 + 4.5));
    EXPECT_EQ(size({128, 128}, 40), QSizeF(78, 78));
    EXPECT_EQ(size({89, 83}, 46), QSizeF(78, 78)) << "one side is too long for both";
    for (const float senseless : {-100.0F, -std::numeric_limits<float>::max()})
        EXPECT_EQ(size({48, 48}, senseless), QSizeF(14, 14));
    EXPECT_EQ(size({55, 55}, std::numeric_limits<float>::quiet_NaN()), QSizeF(20, 20));
}

TEST(BadgeColor, archived_isReadableAndReadBack)
{
    for (const QColor& color : {QColor(1, 2, 3), QColor(255, 128, 0, 7), QColor(0, 0, 0, 0)})
        EXPECT_EQ(unarchivedColor(archivedColor(color)), color);
    EXPECT_EQ(archivedColor(QColor(255, 128, 0, 7)), "#ff800007");
    EXPECT_EQ(unarchivedColor(" #FF8000\n"), QColor(255, 128, 0));
    for (const char* other :
         {"", "#", "#fff", "red", "#12345g", "#1234567", "#123456789", "#12 45 "})
        EXPECT_FALSE(unarchivedColor(other)) << other;
    EXPECT_FALSE(unarchivedColor(QByteArray(100000, '#')));
}

TEST(BadgeColor, template_isTintedByMultiplication)
{
    QImage shape(3, 1, QImage::Format_ARGB32_Premultiplied);
    shape.setPixelColor(0, 0, Qt::white);
    shape.setPixelColor(1, 0, QColor(128, 128, 128, 100));
    shape.setPixelColor(2, 0, Qt::transparent);
    const QImage image = tinted(shape, QColor(200, 100, 0, 128));
    EXPECT_EQ(image.pixelColor(0, 0), QColor(150, 75, 0, 128));
    EXPECT_NEAR(image.pixelColor(1, 0).red(), 75, 1);
    EXPECT_EQ(image.pixelColor(1, 0).alpha(), 50);
    EXPECT_EQ(image.pixelColor(2, 0).alpha(), 0);
}

TEST(BadgeColor, number_isWhiteWhereThatCanBeRead)
{
    for (const QColor& badge : {defaultBadgeColor, QColor(Qt::red), QColor(255, 149, 0),
                                QColor(52, 199, 89), QColor(Qt::black)})
        EXPECT_EQ(numberColor(badge), Qt::white) << badge.name().toStdString();
    for (const Qt::GlobalColor badge : {Qt::yellow, Qt::cyan, Qt::white, Qt::green})
        EXPECT_EQ(numberColor(badge), Qt::black) << badge;
}

} // namespace
} // namespace lumbrix
