// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/DBOverlayWindow.h"

#include <QtGui/QPainter>

#include "preview/OnGrey.h"

namespace lumbrix
{

DBOverlayWindow::DBOverlayWindow(const platform::Desktop& ports, QWidget* parent)
    : MAWindow(ports, parent)
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
        painter.fillRect(rect(), onGrey(m_overlayColor)); // the window's shape is already rounded
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_overlayColor);
    painter.drawRoundedRect(QRectF(rect()), cornerRadius(), cornerRadius());
}

} // namespace lumbrix
