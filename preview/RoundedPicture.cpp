// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/RoundedPicture.h"

#include <QtCore/QtMath>
#include <QtGui/QPainter>

#include <algorithm>
#include <array>
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
int cornerSide(qreal radius, qreal outlineWidth)
{
    return qCeil(std::max(radius, outlineWidth)) + 1;
}

} // namespace

QImage roundedPicture(const QImage& picture, qreal radius, const QColor& color, qreal width)
{
    if (picture.isNull())
        return {};
    QImage result = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (result.devicePixelRatio() != 1)
        result.setDevicePixelRatio(1);
    const int right = result.width();
    const int bottom = result.height();
    const int side = std::min({cornerSide(radius, width), right / 2, bottom / 2});
    const Corners& corners = cornersOf(side, radius, color, width);
    // Each corner's position in the picture and in the small frame.
    const std::array<std::pair<QPoint, QPoint>, 4> places{
        {{{0, 0}, {0, 0}},
         {{right - side, 0}, {side, 0}},
         {{0, bottom - side}, {0, side}},
         {{right - side, bottom - side}, {side, side}}}};
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    for (const auto& [to, from] : places)
        painter.drawImage(to, corners.mask, QRect(from, QSize(side, side)));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    for (const auto& [to, from] : places)
        painter.drawImage(to, corners.outline, QRect(from, QSize(side, side)));
    const QRectF across(side, 0, right - 2 * side, width);
    const QRectF along(0, side, width, bottom - 2 * side);
    for (const QRectF& edge :
         {across, across.translated(0, bottom - width), along, along.translated(right - width, 0)})
        painter.fillRect(edge, color);
    return result;
}

bool patchRounded(QImage& rounded, const QImage& picture, const QRect& part, qreal radius,
                  qreal outlineWidth)
{
    const int side = cornerSide(radius, outlineWidth);
    const bool isOpaque = picture.format() == QImage::Format_RGB32;
    if (rounded.size() != picture.size() ||
        rounded.format() != QImage::Format_ARGB32_Premultiplied ||
        !(isOpaque || picture.format() == rounded.format()) ||
        !picture.rect().adjusted(side, side, -side, -side).contains(part))
        return false;
    for (int y = part.top(); y < part.top() + part.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(picture.constScanLine(y)) + part.left();
        QRgb* to = reinterpret_cast<QRgb*>(rounded.scanLine(y)) + part.left();
        std::transform(from, from + part.width(), to,
                       [isOpaque](QRgb pixel) { return isOpaque ? pixel | 0xff000000U : pixel; });
    }
    return true;
}

} // namespace lumbrix
