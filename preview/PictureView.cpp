// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/PictureView.h"

#include <QtGui/QPainter>

#include "platform/PictureScaler.h"

namespace lumbrix
{

void PictureView::setImage(const QImage& image)
{
    if (m_image.cacheKey() == image.cacheKey())
        return;
    m_image = image;
    m_scaled = {};
    update();
}

void PictureView::paintEvent(QPaintEvent*)
{
    if (m_image.isNull())
        return;
    const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
    if (m_scaled.size() != pixels)
        m_scaled = scaledPicture(m_image, pixels);
    QPainter painter(this);
    painter.drawImage(rect(), m_scaled);
}

} // namespace lumbrix
