// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/DBOverlayWindow.h"

#include <QtGui/QPainter>

namespace lumbrix
{
namespace
{

/// What the colour makes of a wallpaper of middling grey, for where nothing is blended.
QColor onGrey(const QColor& color)
{
    const qreal rest = (1 - color.alphaF()) * 0.5;
    return QColor::fromRgbF(static_cast<float>(color.redF() * color.alphaF() + rest),
                            static_cast<float>(color.greenF() * color.alphaF() + rest),
                            static_cast<float>(color.blueF() * color.alphaF() + rest));
}

} // namespace

DBOverlayWindow::DBOverlayWindow(QWidget* parent) : MAWindow(parent)
{
    connect(this, &MAWindow::shapedChanged, this, qOverload<>(&QWidget::update));
}

void DBOverlayWindow::setOverlayColor(const QColor& color)
{
    if (m_overlayColor == color)
        return;
    m_overlayColor = color;
    update();
}

void DBOverlayWindow::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (isShaped()) {
        painter.fillRect(rect(), onGrey(m_overlayColor)); // the window's shape is the rounded one
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_overlayColor);
    painter.drawRoundedRect(QRectF(rect()), cornerRadius(), cornerRadius());
}

} // namespace lumbrix
