// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/PicturePieces.h"

#include "platform/pictures/PictureScaler.h"

#include <array>
#include <cstddef>

namespace lumbrix::platform::x11
{
namespace
{

constexpr QRgb opaque = 0xff000000U;

} // namespace

void makeOpaque(QImage& picture)
{
    if (picture.isNull() || picture.format() != QImage::Format_RGB32)
        return;
    auto* pixel = reinterpret_cast<QRgb*>(picture.bits()); // of 32 bits, so lines end without a gap
    auto left =
        static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.height());
    // In blocks of a known length, which the compiler gives to wide registers.
    constexpr std::size_t block = 16;
    for (; left >= block; left -= block, pixel += block)
        for (std::size_t i = 0; i < block; ++i)
            pixel[i] |= opaque;
    for (std::size_t i = 0; i < left; ++i)
        pixel[i] |= opaque;
}

QImage scaledOwn(const QImage& picture, QSize size)
{
    if (picture.isNull() || size != picture.size())
        return scaledPicture(picture, size);
    QImage result = picture.copy();
    makeOpaque(result);
    return result;
}

QImage inHalfTheMemory(const QImage& picture)
{
    // In the order in which the pixels of a block of four by four take the next level up.
    constexpr std::array<std::array<int, 4>, 4> order{
        {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}}};
    QImage result(picture.size(), QImage::Format_RGB16);
    for (int y = 0; y < result.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        auto* to = reinterpret_cast<quint16*>(result.scanLine(y));
        const auto& line = order[static_cast<std::size_t>(y) % order.size()];
        for (int x = 0; x < result.width(); ++x) {
            const int more = line[static_cast<std::size_t>(x) % line.size()] * 16 + 8;
            const auto level = [more](int value, int highest) {
                return (value * highest + more) / 255;
            };
            to[x] =
                static_cast<quint16>(level(qRed(from[x]), 31) << 11 |
                                     level(qGreen(from[x]), 63) << 5 | level(qBlue(from[x]), 31));
        }
    }
    return result;
}

QImage pieceOf(const QImage& picture, const QRect& rect)
{
    return {picture.constScanLine(rect.y()) + rect.x() * std::ptrdiff_t{4}, rect.width(),
            rect.height(), picture.bytesPerLine(), picture.format()};
}

void putPiece(QImage& picture, QPoint at, const QImage& piece)
{
    const QRgb always = picture.format() == QImage::Format_RGB32 ? opaque : 0;
    for (int y = 0; y < piece.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(piece.constScanLine(y));
        QRgb* to = reinterpret_cast<QRgb*>(picture.scanLine(at.y() + y)) + at.x();
        for (int x = 0; x < piece.width(); ++x)
            to[x] = from[x] | always;
    }
}

} // namespace lumbrix::platform::x11
