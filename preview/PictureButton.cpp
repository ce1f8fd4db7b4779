// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/PictureButton.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <utility>

#include "platform/pictures/ChangedPart.h"
#include "platform/pictures/PictureScaler.h"
#include "preview/RoundedPicture.h"

namespace lumbrix
{
namespace
{
/// The share of an empty button that an icon fills.
constexpr qreal iconPart = 0.6;
/// Of the ring about a hovered picture: what is seen on any colour beside it, and a line that parts
/// it from a picture of its own colour.
constexpr qreal ringBreadth = 3;
constexpr qreal lineBreadth = 1;

QColor parting(const QColor& ring)
{
    return qGray(ring.rgb()) > 127 ? QColor(0, 0, 0, 190) : QColor(255, 255, 255, 220);
}
} // namespace

PictureButton::PictureButton(QWidget* parent) : LXTransparentButtonCell(parent) {}

void PictureButton::setImage(const QImage& image)
{
    const bool isOvertaken = std::exchange(m_newest, nullptr) != nullptr;
    if (isOvertaken)
        update();
    if (m_image.cacheKey() == image.cacheKey())
        return;
    const QRect before = m_image.isNull() ? QRect() : pictureRect();
    const QRect changed = changedPart(m_image, image);
    const bool isCleared = image.isNull() && !m_image.isNull();
    m_image = image;
    const QRect now = m_image.isNull() ? QRect() : pictureRect();
    if (before == now && m_paintedFor == m_image.size()) {
        m_unpainted |= changed;
        if (!changed.isEmpty())
            update(pointsOf(changed, devicePixelRatioF()).translated(now.topLeft()));
        return;
    }
    m_painted = {};
    m_paintedFor = {};
    if (isCleared || !changed.isEmpty())
        update();
    if (before != now)
        Q_EMIT pictureRectChanged();
}

void PictureButton::setIcon(const QImage& icon)
{
    if (m_icon.cacheKey() == icon.cacheKey())
        return;
    m_icon = icon;
    if (m_image.isNull())
        update();
}

void PictureButton::setHighlighted(bool on)
{
    if (std::exchange(m_isHighlighted, on) == on)
        return;
    m_ring = {};
    update();
}

int PictureButton::iconSide() const
{
    const QSize area = pixels();
    return static_cast<int>(iconPart * std::min(area.width(), area.height()));
}

void PictureButton::setOvertaken(std::function<QImage()> newest) { m_newest = std::move(newest); }

void PictureButton::catchUp(const QRegion& painted)
{
    const QImage newest = m_newest();
    if (newest.size() == m_image.size()) {
        m_unpainted |= changedPart(m_image, newest);
        m_image = newest;
    }
    // What is not painted now does not show this one either.
    if (QRegion(pictureRect()).subtracted(painted).isEmpty())
        m_newest = nullptr;
}

PictureButton::Parts PictureButton::parts() const
{
    const qreal ratio = devicePixelRatioF();
    const QRect rect = pictureRect();
    const QSize size = m_image.size();
    const QPointF exact = QPointF(rect.topLeft()) * ratio;
    const QPoint place = exact.toPoint();
    if (m_image.isNull() || isDown() || QPointF(place) != exact ||
        size != pixelsToDraw(size, rect.size(), ratio))
        return {};
    const bool isHovered = m_isHighlighted && isEnabled();
    const qreal edge = (isHovered ? ringBreadth + lineBreadth : 1) * ratio;
    const qreal radius = m_cornerRadius * ratio;
    const QRegion inner = innerPart(size, radius, edge);
    // Where it is some whole pixels wide.
    const int width = qRound(ratio);
    const QRegion outline =
        isHovered || width != ratio ? QRegion() : straightOutline(size, radius, width);
    if (!isOpaque(m_image, inner + outline))
        return {};
    return {QRect(place, size), inner.translated(place), outline.translated(place)};
}

QRect PictureButton::pictureRect() const
{
    if (m_image.isNull())
        return rect();
    const QSizeF life = m_image.deviceIndependentSize();
    const qreal scale = std::min({1.0, width() / life.width(), height() / life.height()});
    const QSize size(std::max(1, qRound(life.width() * scale)),
                     std::max(1, qRound(life.height() * scale)));
    return {QPoint((width() - size.width()) / 2, (height() - size.height()) / 2), size};
}

const QImage& PictureButton::painted(QSize points)
{
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = pixelsToDraw(m_image.size(), points, ratio);
    const qreal radius = m_cornerRadius * ratio;
    const bool isKept = m_paintedFor == pixels;
    const QRect unpainted = std::exchange(m_unpainted, {});
    if (isKept && unpainted.isEmpty())
        return m_painted;
    // What is unpainted is noted only while the picture is painted in its own size.
    const QImage scaled = m_image.size() == pixels ? m_image : scaledPicture(m_image, pixels);
    updateRounded(m_painted, scaled, isKept ? unpainted : scaled.rect(), radius, m_outline, ratio);
    m_painted.setDevicePixelRatio(ratio);
    m_paintedFor = pixels;
    return m_painted;
}

const QImage& PictureButton::ring(QSize points)
{
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(points) * ratio).toSize();
    if (m_ring.size() == pixels)
        return m_ring;
    m_ring = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    m_ring.setDevicePixelRatio(ratio);
    m_ring.fill(Qt::transparent);
    QPainter painter(&m_ring);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto draw = [&](const QColor& color, qreal breadth, qreal inset) {
        const qreal middle = inset + breadth / 2;
        const qreal radius = std::max(0.0, m_cornerRadius - middle);
        painter.setPen(QPen(color, breadth));
        painter.drawRoundedRect(
            QRectF(QPointF(0, 0), points).adjusted(middle, middle, -middle, -middle), radius,
            radius);
    };
    draw(parting(m_hoverOutline), lineBreadth, ringBreadth);
    draw(m_hoverOutline, ringBreadth, 0);
    return m_ring;
}

void PictureButton::paintIcon(QPainter& painter) const
{
    if (m_icon.isNull())
        return;
    const qreal side = iconSide() / devicePixelRatioF();
    QRectF place({}, QSizeF(m_icon.size()).scaled(side, side, Qt::KeepAspectRatio));
    place.moveCenter(QRectF(rect()).center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(place.topLeft().toPoint(), place.size()), m_icon);
}

void PictureButton::paintEvent(QPaintEvent* event)
{
    if (m_newest)
        catchUp(event->region());
    QPainter painter(this);
    const QRect picture = pictureRect();
    if (!m_image.isNull())
        painter.drawImage(picture.topLeft(), painted(picture.size()));
    else if (m_placeholder.alpha() == 0 && m_icon.isNull())
        return;
    const bool isHovered = m_isHighlighted && isEnabled();
    if (!m_image.isNull() && !isDown() && !isHovered)
        return;
    const auto draw = [&painter](const QRectF& rect, qreal radius) {
        painter.drawRoundedRect(rect, radius, radius);
    };
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (m_image.isNull()) {
        painter.setBrush(m_placeholder);
        draw(picture, m_cornerRadius);
        paintIcon(painter);
    }
    if (isDown()) {
        painter.setBrush(QColor(0, 0, 0, 70));
        draw(picture, m_cornerRadius);
    }
    painter.setBrush(Qt::NoBrush);
    if (isHovered) {
        painter.drawImage(picture.topLeft(), ring(picture.size()));
    } else if (m_image.isNull()) {
        painter.setPen(QPen(m_outline, 1));
        draw(QRectF(picture).adjusted(0.5, 0.5, -0.5, -0.5), m_cornerRadius - 0.5);
    }
}

} // namespace lumbrix
