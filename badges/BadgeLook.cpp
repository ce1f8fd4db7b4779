// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "badges/BadgeLook.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace lumbrix
{
namespace
{

constexpr double maxSide = 78;
/// Smaller badges are not readable.
constexpr double smallestSide = 14;
constexpr double itemShare = 2.75;
/// A window button is long and thin. The usual share of its width and height would not make a round
/// badge, and that share of its height alone would be too small to read.
constexpr double longItem = 1.25;
constexpr double buttonShare = 1.6;

/// The brightness that the template's white is drawn with.
constexpr double brightest = 0.75;

/// The linear light of a gamma-encoded colour component.
double light(double share) { return std::pow(share, 2.2); }

QSizeF badgeSize(const QSizeF& item, double extra)
{
    const double breadth = std::min(item.width(), item.height());
    QSizeF size = item / itemShare;
    if (std::max(item.width(), item.height()) > longItem * breadth)
        size = QSizeF(breadth, breadth) / buttonShare;
    size = QSizeF(extra + size.width(), extra + size.height());
    if (size.width() > maxSide || size.height() > maxSide)
        return {maxSide, maxSide};
    return size.expandedTo({smallestSide, smallestSide});
}

} // namespace

QRectF badgeFrame(const QRectF& item, std::int32_t position, float extra)
{
    const QSizeF size =
        badgeSize(item.size(), std::isfinite(extra) ? static_cast<double>(extra) : 0);
    const double left = item.x() + 2;
    const double right = item.x() + item.width() - size.width() - 2;
    const double bottom = item.y() + 1;
    const double top = item.y() + item.height() - size.height() - 1;
    switch (position) {
    case 1:
        return {{left, top}, size};
    case 2:
        return {{item.x() + item.width() * 0.5 - size.width() * 0.5,
                 item.y() + item.height() * 0.5 - size.height() * 0.5},
                size};
    case 3:
        return {{right, bottom}, size};
    case 4:
        return {{left, bottom}, size};
    default:
        return {{right, top}, size};
    }
}

QImage tinted(const QImage& shape, const QColor& color)
{
    QImage result = shape.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < result.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < result.width(); ++x) {
            const double shade = brightest * qGray(line[x]) / 255;
            line[x] = qRgba(qRound(color.red() * shade), qRound(color.green() * shade),
                            qRound(color.blue() * shade), qAlpha(line[x]) * color.alpha() / 255);
        }
    }
    return result;
}

QColor numberColor(const QColor& badge)
{
    constexpr double least = 3; // below this ratio large bold figures are hard to read
    const double luminance = 0.2126 * light(brightest * badge.redF()) +
                             0.7152 * light(brightest * badge.greenF()) +
                             0.0722 * light(brightest * badge.blueF());
    return 1.05 / (luminance + 0.05) < least ? Qt::black : Qt::white;
}

QByteArray archivedColor(const QColor& color)
{
    return color.name().toLatin1() + QByteArray::number(color.alpha() | 0x100, 16).right(2);
}

std::optional<QColor> unarchivedColor(const QByteArray& data)
{
    const QByteArray text = data.trimmed();
    const QByteArray digits = text.mid(1);
    if (!text.startsWith('#') || (digits.size() != 6 && digits.size() != 8) ||
        !std::all_of(digits.begin(), digits.end(),
                     [](char c) { return std::isxdigit(static_cast<unsigned char>(c)) != 0; }))
        return std::nullopt;
    QColor color(QString::fromLatin1(text.left(7)));
    if (digits.size() == 8)
        color.setAlpha(digits.right(2).toInt(nullptr, 16));
    return color;
}

} // namespace lumbrix
