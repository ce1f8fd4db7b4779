// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/PictureButton.h"

#include <QtGui/QPainter>

#include <algorithm>

#include "preview/PictureScaler.h"

namespace lumbrix
{

PictureButton::PictureButton(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_Hover);
}

void PictureButton::setImage(const QImage& image)
{
    if (m_image.cacheKey() == image.cacheKey())
        return;
    const QRect before = m_image.isNull() ? QRect() : pictureRect();
    m_image = image;
    m_scaled = {};
    m_scaledFor = {};
    update();
    if (before != (m_image.isNull() ? QRect() : pictureRect()))
        Q_EMIT pictureRectChanged();
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

const QImage& PictureButton::scaled(QSize points)
{
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(points) * ratio).toSize();
    if (m_scaledFor == pixels)
        return m_scaled;
    const QImage square = scaledPicture(m_image, pixels);
    m_scaled = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    m_scaled.fill(Qt::transparent);
    {
        QPainter painter(&m_scaled);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QBrush(square));
        const qreal radius = m_cornerRadius * ratio;
        painter.drawRoundedRect(QRectF(QPointF(), QSizeF(pixels)), radius, radius);
    }
    m_scaled.setDevicePixelRatio(ratio);
    m_scaledFor = pixels;
    return m_scaled;
}

void PictureButton::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect picture = pictureRect();
    const QRectF edge = QRectF(picture).adjusted(0.5, 0.5, -0.5, -0.5);
    if (m_image.isNull()) {
        if (m_placeholder.alpha() == 0)
            return;
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_placeholder);
        painter.drawRoundedRect(QRectF(picture), m_cornerRadius, m_cornerRadius);
    } else {
        painter.drawImage(picture.topLeft(), scaled(picture.size()));
    }
    if (isDown()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(0, 0, 0, 70));
        painter.drawRoundedRect(QRectF(picture), m_cornerRadius, m_cornerRadius);
    }
    painter.setBrush(Qt::NoBrush);
    if (underMouse() && isEnabled()) {
        painter.setPen(QPen(m_hoverOutline, 2));
        painter.drawRoundedRect(edge.adjusted(0.5, 0.5, -0.5, -0.5), m_cornerRadius - 1,
                                m_cornerRadius - 1);
    } else {
        painter.setPen(QPen(m_outline, 1));
        painter.drawRoundedRect(edge, m_cornerRadius - 0.5, m_cornerRadius - 0.5);
    }
}

} // namespace lumbrix
