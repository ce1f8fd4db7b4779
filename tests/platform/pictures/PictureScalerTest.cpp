// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/pictures/PictureScaler.h"

#include "platform/pictures/ChangedPart.h"

#include <gtest/gtest.h>

#include <QtCore/QRandomGenerator>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace lumbrix
{
namespace
{

/// Noise on the left, hard edges on the right: what is worst for a filter's rounding.
QImage testPicture(QSize size, QImage::Format format)
{
    QRandomGenerator random(7);
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            const bool isNoise = x < size.width() / 2;
            const QRgb hard = (x / 3 + y / 5) % 2 ? 0xffffffff : 0xff000000;
            image.setPixel(x, y, isNoise ? random.generate() : hard);
        }
    }
    return image.convertToFormat(format);
}

using Taps = std::vector<std::pair<int, double>>;

/// Per target sample of an axis, the source samples and their exact shares: of the area covered
/// when the axis shrinks, of the nearest two centres when it grows.
std::vector<Taps> exactTaps(int source, int target)
{
    std::vector<Taps> axis;
    const double ratio = static_cast<double>(source) / target;
    for (int at = 0; at < target; ++at) {
        Taps& taps = axis.emplace_back();
        if (ratio > 1) {
            const double begin = at * ratio;
            const double end = begin + ratio;
            for (int i = static_cast<int>(begin); i < std::min<double>(end, source); ++i)
                taps.emplace_back(i, (std::min(end, i + 1.0) - std::max<double>(begin, i)) / ratio);
        } else {
            const double centre = std::clamp((at + 0.5) * ratio - 0.5, 0.0, source - 1.0);
            const int low = static_cast<int>(centre);
            taps.emplace_back(low, 1 - (centre - low));
            taps.emplace_back(std::min(low + 1, source - 1), centre - low);
        }
    }
    return axis;
}

double exact(const QImage& image, const Taps& columns, const Taps& rows, int index)
{
    double sum = 0;
    for (const auto& [row, rowWeight] : rows) {
        const uchar* line = image.constScanLine(row) + index;
        for (const auto& [column, columnWeight] : columns)
            sum += rowWeight * columnWeight * line[column * 4];
    }
    return sum;
}

TEST(PictureScaler, anyRatio_isTheExactAreaAverage)
{
    const struct {
        QSize source;
        QSize target;
    } cases[] = {
        {{1280, 240}, {243, 45}}, {{341, 279}, {100, 95}}, {{257, 131}, {256, 130}},
        {{97, 61}, {96, 31}},     {{2000, 30}, {13, 30}},  {{33, 2100}, {7, 5}},
        {{61, 37}, {183, 111}},   {{40, 300}, {95, 77}},   {{1, 1}, {5, 3}},
        {{5, 3}, {1, 1}},         {{3, 2}, {2, 2}},
    };
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_ARGB32_Premultiplied}) {
        const int channels = format == QImage::Format_RGB32 ? 3 : 4;
        for (const auto& [sourceSize, target] : cases) {
            SCOPED_TRACE(testing::Message() << sourceSize.width() << "x" << sourceSize.height()
                                            << " to " << target.width() << "x" << target.height());
            const QImage source = testPicture(sourceSize, format);
            const QImage result = scaledPicture(source, target);
            ASSERT_EQ(result.size(), target);
            ASSERT_EQ(result.format(), format);
            EXPECT_EQ(scaledPicture(source, target, Arithmetic::Plain), result);
            const std::vector<Taps> columns = exactTaps(sourceSize.width(), target.width());
            const std::vector<Taps> rows = exactTaps(sourceSize.height(), target.height());
            double squares = 0;
            double worst = 0;
            for (int y = 0; y < target.height(); ++y) {
                for (int x = 0; x < target.width(); ++x) {
                    for (int c = 0; c < channels; ++c) {
                        const double error = std::abs(result.constScanLine(y)[x * 4 + c] -
                                                      exact(source, columns[x], rows[y], c));
                        squares += error * error;
                        worst = std::max(worst, error);
                    }
                }
            }
            const double mean = squares / (1.0 * target.width() * target.height() * channels);
            EXPECT_LT(worst, 1.0);
            EXPECT_GT(10 * std::log10(255.0 * 255.0 / std::max(mean, 1e-9)), 54.0);
        }
    }
}

TEST(PictureScaler, flatPictures_keepTheirColourAtEveryRatio)
{
    for (const QRgb colour : {0xff000000, 0xffffffff, 0xff8040c1}) {
        for (const QSize source : {QSize(1280, 800), QSize(5000, 31), QSize(3, 9000)}) {
            QImage flat(source, QImage::Format_RGB32);
            // As a server may send them: what is no colour is zero.
            std::fill_n(reinterpret_cast<QRgb*>(flat.bits()), source.width() * source.height(),
                        colour & 0xffffff);
            const QImage small = scaledPicture(flat, {37, 29});
            for (int y = 0; y < small.height(); ++y) {
                const auto* line = reinterpret_cast<const QRgb*>(small.constScanLine(y));
                for (int x = 0; x < small.width(); ++x)
                    ASSERT_EQ(line[x], colour) << x << "," << y;
            }
        }
    }
}

TEST(PictureScaler, partScaledAgain_isThatOfTheWhole)
{
    const struct {
        QSize source;
        QSize target;
    } cases[] = {
        {{1280, 240}, {243, 45}}, {{257, 131}, {256, 130}}, {{97, 61}, {96, 61}},
        {{2000, 30}, {40, 13}},   {{61, 37}, {183, 111}},   {{9, 300}, {8, 77}},
    };
    QRandomGenerator random(11);
    for (const auto& [sourceSize, target] : cases) {
        QImage source = testPicture(sourceSize, QImage::Format_RGB32);
        QImage scaled = scaledPicture(source, target);
        ASSERT_TRUE(canScaleParts(sourceSize, target));
        for (int i = 0; i < 60; ++i) {
            const QPoint at(random.bounded(sourceSize.width()),
                            random.bounded(sourceSize.height()));
            const QRect changed(at,
                                QSize(1 + random.bounded(12), 1 + random.bounded(i < 30 ? 9 : 90)));
            for (int y = changed.top(); y <= std::min(changed.bottom(), source.height() - 1); ++y)
                for (int x = changed.left(); x <= std::min(changed.right(), source.width() - 1);
                     ++x)
                    source.setPixel(x, y, random.generate());
            const QRect part = partMadeOf(changed, sourceSize, target);
            const QImage piece = source.copy(sourceOfPart(part, sourceSize, target));
            scalePart(scaled, part, piece, sourceSize,
                      i % 2 ? Arithmetic::Plain : Arithmetic::Widest);
            ASSERT_EQ(scaled, scaledPicture(source, target))
                << sourceSize.width() << " to " << target.width() << " at " << at.x() << ","
                << at.y();
        }
    }
    EXPECT_TRUE(partMadeOf({40, 40, 5, 5}, {30, 30}, {9, 9}).isEmpty());
    EXPECT_FALSE(canScaleParts({20, 20}, {20, 20}) || canScaleParts({5, 300}, {4, 100}) ||
                 canScaleParts({900, 9000}, {90, 90}));
}

TEST(PictureScaler, pictureThatMoves_isMadeOfASmallPart_asManyForEachPixel)
{
    for (const QSize target : {QSize(91, 57), QSize(214, 133), QSize(300, 187), QSize(360, 225)}) {
        const QSize samples = samplesOfMoving({1280, 800}, target);
        ASSERT_FALSE(samples.isEmpty());
        EXPECT_EQ(samples.width() % target.width() + samples.height() % target.height(), 0);
        EXPECT_GE(samples.width(), 2 * target.width());
        EXPECT_LE(samples.width() * samples.height(), 1280 * 800 / 3);
    }
    EXPECT_EQ(samplesOfMoving({1280, 800}, {91, 57}), QSize(4 * 91, 3 * 57));
    for (const QSize source : {QSize(640, 400), QSize(4000, 350), QSize(300, 9000), QSize(0, 0)})
        EXPECT_TRUE(samplesOfMoving(source, {300, 187}).isEmpty()) << source.width();
}

TEST(PictureScaler, degenerateInput_givesNothingOrTheSourceItself)
{
    EXPECT_TRUE(scaledPicture({}, {10, 10}).isNull());
    QImage image = testPicture({20, 10}, QImage::Format_RGB32);
    EXPECT_TRUE(scaledPicture(image, {0, 10}).isNull());
    EXPECT_EQ(scaledPicture(image, image.size()).cacheKey(), image.cacheKey());
    image.setDevicePixelRatio(2);
    EXPECT_EQ(scaledPicture(image, {10, 5}).devicePixelRatio(), 1);
    // Formats a capture or an artwork may have.
    EXPECT_EQ(scaledPicture(image.convertToFormat(QImage::Format_Grayscale8), {9, 4}).format(),
              QImage::Format_RGB32);
}

TEST(PictureScaler, pictureThatFitsButForRounding_isDrawnAsItIs)
{
    const auto draw = [](int picture, int points, double pixelsPerPoint) {
        return pixelsToDraw({picture, picture}, {points, points}, pixelsPerPoint).width();
    };
    EXPECT_EQ(draw(361, 180, 2.0), 361);
    EXPECT_EQ(draw(361, 181, 2.0), 361);
    EXPECT_EQ(draw(362, 180, 2.0), 360);
    EXPECT_EQ(draw(227, 182, 1.25), 227);
    EXPECT_EQ(draw(230, 182, 1.25), 228);
    EXPECT_EQ(draw(101, 100, 1.0), 100);
    EXPECT_EQ(pixelsToDraw({361, 400}, {180, 150}, 2.0), QSize(360, 300));
}

TEST(ChangedPart, isTheSmallestRectangleAboutWhatDiffers)
{
    const QImage before = testPicture({61, 40}, QImage::Format_RGB32);
    EXPECT_EQ(changedPart(before, before.copy()), QRect());
    const std::vector<std::vector<QPoint>> changes{
        {{0, 0}}, {{60, 39}}, {{20, 30}, {22, 11}, {9, 29}}, {{0, 20}, {60, 20}}};
    for (const std::vector<QPoint>& pixels : changes) {
        QImage after = before;
        QRect about;
        for (const QPoint pixel : pixels) {
            after.setPixel(pixel, ~before.pixel(pixel));
            about |= QRect(pixel, QSize(1, 1));
        }
        EXPECT_EQ(changedPart(before, after), about);
    }
    EXPECT_EQ(changedPart({}, before), before.rect());
    EXPECT_EQ(changedPart(before, {}), QRect());
    EXPECT_EQ(changedPart(before, before.copy(0, 0, 60, 40)), QRect(0, 0, 60, 40));
    QImage finer = before;
    finer.setDevicePixelRatio(2);
    EXPECT_EQ(changedPart(before, finer), before.rect());
}

} // namespace
} // namespace lumbrix
