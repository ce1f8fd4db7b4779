// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/pictures/ChangedPart.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <span>

namespace lumbrix
{
namespace
{

bool isComparable(const QImage& before, const QImage& after)
{
    return before.size() == after.size() && before.format() == after.format() &&
           after.depth() == 32 && before.devicePixelRatio() == after.devicePixelRatio();
}

std::span<const QRgb> lineOf(const QImage& image, int y)
{
    return {reinterpret_cast<const QRgb*>(image.constScanLine(y)),
            static_cast<std::size_t>(image.width())};
}

bool isSameLine(const QImage& before, const QImage& after, int y)
{
    const auto line = lineOf(before, y);
    return std::memcmp(line.data(), lineOf(after, y).data(), line.size_bytes()) == 0;
}

} // namespace

QRect changedPart(const QImage& before, const QImage& after)
{
    if (!isComparable(before, after))
        return after.rect();
    int top = 0;
    int end = after.height();
    while (top < end && isSameLine(before, after, top))
        ++top;
    while (end > top && isSameLine(before, after, end - 1))
        --end;
    // Of each line only what is still outside has to be looked at.
    std::size_t left = lineOf(after, 0).size();
    std::size_t right = 0;
    for (int y = top; y < end; ++y) {
        const auto old = lineOf(before, y);
        const auto now = lineOf(after, y);
        const auto [first, unused] = std::ranges::mismatch(old.first(left), now.first(left));
        left = static_cast<std::size_t>(first - old.begin());
        std::size_t last = now.size();
        while (last > right && old[last - 1] == now[last - 1])
            --last;
        right = last;
    }
    if (top == end)
        return {};
    return {static_cast<int>(left), top, static_cast<int>(right - left), end - top};
}

QRect pointsOf(const QRect& pixels, double pixelsPerPoint)
{
    const QRect points =
        QRectF(QPointF(pixels.topLeft()) / pixelsPerPoint, QSizeF(pixels.size()) / pixelsPerPoint)
            .toAlignedRect();
    // With a fraction of a pixel to a point, the picture may begin within a pixel.
    const int more = pixelsPerPoint == std::floor(pixelsPerPoint) ? 0 : 1;
    return points.adjusted(-more, -more, more, more);
}

} // namespace lumbrix
