// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/PictureView.h"

#include <QtGui/QPainter>

#include "platform/pictures/ChangedPart.h"
#include "platform/pictures/PictureScaler.h"

namespace lumbrix
{

void PictureView::setImage(const QImage& image)
{
    if (m_image.cacheKey() == image.cacheKey())
        return;
    const QRect changed = changedPart(m_image, image);
    const bool isPainted = !image.isNull() && m_scaled.size() == image.size();
    m_image = image;
    m_scaled = {};
    if (!isPainted)
        update();
    else if (!changed.isEmpty())
        update(pointsOf(changed, devicePixelRatioF()));
}

void PictureView::paintEvent(QPaintEvent*)
{
    if (m_image.isNull())
        return;
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = pixelsToDraw(m_image.size(), size(), ratio);
    if (m_scaled.size() != pixels) {
        m_scaled = scaledPicture(m_image, pixels);
        m_scaled.setDevicePixelRatio(ratio);
    }
    QPainter painter(this);
    painter.drawImage(0, 0, m_scaled);
}

} // namespace lumbrix
