// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/PicturePieces.h"

#include "platform/pictures/PictureScaler.h"

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
