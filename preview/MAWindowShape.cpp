// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The shape of a panel if translucency is not blended.
#include "preview/MAWindow.h"

#include <QtGui/QBitmap>
#include <QtGui/QPainter>

#include <utility>

#include "platform/WindowServer.h"

namespace lumbrix
{

void MAWindow::setCornerRadius(qreal radius)
{
    m_cornerRadius = radius;
    updateShape();
}

void MAWindow::setShapeSource(std::function<QPainterPath()> source)
{
    m_shapeSource = std::move(source);
    updateShape();
}

void MAWindow::updateShape()
{
    if (isFront())
        applyShape();
}

void MAWindow::prepareToShow()
{
    const bool shaped = !m_ports.windowServer.blendsTranslucency();
    if (m_shaped != shaped) {
        m_shaped = shaped;
        Q_EMIT shapedChanged(shaped);
    }
    applyShape();
}

void MAWindow::applyShape()
{
    if (!m_shaped || (!m_shapeSource && m_cornerRadius <= 0)) {
        if (!mask().isEmpty())
            clearMask();
        return;
    }
    QPainterPath path;
    if (m_shapeSource)
        path = m_shapeSource();
    else
        path.addRoundedRect(QRectF(rect()), m_cornerRadius, m_cornerRadius);
    if (path == m_maskPath && !mask().isEmpty())
        return;
    m_maskPath = path;
    // The mask is painted; a region made from the path's polygons would round the corners inward.
    QBitmap bitmap(size());
    bitmap.clear();
    QPainter painter(&bitmap);
    painter.fillPath(path, Qt::color1);
    painter.end();
    setMask(QRegion(bitmap));
}

} // namespace lumbrix
