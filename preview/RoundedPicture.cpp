// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/RoundedPicture.h"

#include <QtCore/QtMath>
#include <QtGui/QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

namespace lumbrix
{
namespace
{

/// The four corners of a small frame, used for all larger frames.
struct Corners {
    Corners(int side, qreal radius, const QColor& color, qreal width)
        : mask(2 * side, 2 * side, QImage::Format_ARGB32_Premultiplied),
          outline(mask.size(), mask.format())
    {
        mask.fill(Qt::transparent);
        QPainter cut(&mask);
        cut.setRenderHint(QPainter::Antialiasing);
        cut.setPen(Qt::NoPen);
        cut.setBrush(Qt::black);
        cut.drawRoundedRect(QRectF(mask.rect()), radius, radius);
        outline.fill(Qt::transparent);
        QPainter pen(&outline);
        pen.setRenderHint(QPainter::Antialiasing);
        pen.setPen(QPen(color, width));
        pen.drawRoundedRect(
            QRectF(outline.rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2),
            radius - width / 2, radius - width / 2);
    }

    QImage mask;
    QImage outline;
};

/// All pictures of a row have the same corners, and drawing these takes longer than everything
/// else.
const Corners& cornersOf(int side, qreal radius, const QColor& color, qreal width)
{
    struct Kept {
        int side;
        qreal radius;
        QColor color;
        qreal width;
        bool operator==(const Kept&) const = default;
    };
    thread_local std::optional<std::pair<Kept, Corners>> last;
    const Kept wanted{side, radius, color, width};
    if (!last || last->first != wanted)
        last.emplace(wanted, Corners(side, radius, color, width));
    return last->second;
}

/// How far in from its corners a picture is changed.
int cornerSide(QSize size, qreal radius, qreal outlineWidth)
{
    return std::min(
        {qCeil(std::max(radius, outlineWidth)) + 1, size.width() / 2, size.height() / 2});
}

/// The outline between the corners.
std::array<QRectF, 4> straightLines(QSize size, int side, qreal width)
{
    const int right = size.width();
    const int bottom = size.height();
    const QRectF across(side, 0, right - 2 * side, width);
    const QRectF along(0, side, width, bottom - 2 * side);
    return {across, across.translated(0, bottom - width), along,
            along.translated(right - width, 0)};
}

/// The toolkit's own conversion would start threads for it.
void putPixels(QImage& rounded, const QImage& picture, const QRect& part)
{
    const bool isOpaque = picture.format() == QImage::Format_RGB32;
    if (!isOpaque && picture.format() != rounded.format()) {
        putPixels(rounded, picture.convertToFormat(rounded.format()), part);
        return;
    }
    const QRgb always = isOpaque ? 0xff000000U : 0;
    for (int y = part.top(); y <= part.bottom(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(picture.constScanLine(y)) + part.left();
        QRgb* to = reinterpret_cast<QRgb*>(rounded.scanLine(y)) + part.left();
        std::transform(from, from + part.width(), to,
                       [always](QRgb pixel) { return pixel | always; });
    }
}

} // namespace

void updateRounded(QImage& rounded, const QImage& picture, const QRect& part, qreal radius,
                   const QColor& color, qreal width)
{
    QRect changed = part;
    if (rounded.size() != picture.size()) {
        rounded = QImage(picture.size(), QImage::Format_ARGB32_Premultiplied);
        changed = picture.rect();
    }
    putPixels(rounded, picture, changed);
    const int edge = qCeil(width);
    if (picture.rect().adjusted(edge, edge, -edge, -edge).contains(changed))
        return; // no corner either, as these reach to the edges

    const int right = picture.width();
    const int bottom = picture.height();
    const int side = cornerSide(picture.size(), radius, width);
    // Each corner's position in the picture and in the small frame.
    const QSize corner(side, side);
    const std::array<std::pair<QPoint, QPoint>, 4> places{
        {{{0, 0}, {0, 0}},
         {{right - side, 0}, {side, 0}},
         {{0, bottom - side}, {0, side}},
         {{right - side, bottom - side}, {side, side}}}};
    const Corners& corners = cornersOf(side, radius, color, width);
    const qreal ratio = rounded.devicePixelRatio();
    rounded.setDevicePixelRatio(1);
    QPainter painter(&rounded);
    painter.setClipRect(changed); // elsewhere they are there already
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    for (const auto& [to, from] : places)
        painter.drawImage(to, corners.mask, QRect(from, corner));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    for (const auto& [to, from] : places)
        painter.drawImage(to, corners.outline, QRect(from, corner));
    for (const QRectF& line : straightLines(picture.size(), side, width))
        painter.fillRect(line, color);
    painter.end();
    rounded.setDevicePixelRatio(ratio);
}

QRegion innerPart(QSize size, qreal radius, qreal edge)
{
    const int inset = qCeil(edge);
    const QRect inner = QRect({}, size).adjusted(inset, inset, -inset, -inset);
    const qreal innerRadius = std::max(0.0, radius - inset);
    const int corner = qCeil(innerRadius);
    if (inner.width() <= 2 * corner || inner.height() <= 2 * corner)
        return {};
    QRegion part = inner.adjusted(0, corner, 0, -corner);
    for (int row = 0; row < corner; ++row) {
        // Of each pixel the corner that is farthest out has to be inside.
        const qreal up = innerRadius - row;
        const qreal along = std::sqrt(innerRadius * innerRadius - up * up);
        const int cut = qCeil(innerRadius - along);
        const QRect line(inner.left() + cut, inner.top() + row, inner.width() - 2 * cut, 1);
        part += line;
        part += line.translated(0, inner.height() - 1 - 2 * row);
    }
    return part;
}

QRegion straightOutline(QSize size, qreal radius, int outlineWidth)
{
    QRegion outline;
    for (const QRectF& line :
         straightLines(size, cornerSide(size, radius, outlineWidth), outlineWidth))
        outline += line.toRect();
    return outline;
}

bool isOpaque(const QImage& picture, const QRegion& part)
{
    if (!picture.hasAlphaChannel())
        return true;
    if (picture.format() != QImage::Format_ARGB32_Premultiplied)
        return false;
    return std::ranges::all_of(part, [&picture](const QRect& rect) {
        for (int y = rect.top(); y <= rect.bottom(); ++y) {
            const auto* line =
                reinterpret_cast<const QRgb*>(picture.constScanLine(y)) + rect.left();
            if (!std::all_of(line, line + rect.width(),
                             [](QRgb pixel) { return qAlpha(pixel) == 255; }))
                return false;
        }
        return true;
    });
}

} // namespace lumbrix
