// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/ImageButton.h"

#include <QtGui/QPainter>

#include "preview/NamedImage.h"

namespace lumbrix
{

ImageButton::ImageButton(QWidget* parent) : LXButtonCell(parent)
{
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::ArrowCursor);
}

void ImageButton::setAlpha(qreal alpha)
{
    if (m_alpha == alpha)
        return;
    m_alpha = alpha;
    update();
}

void ImageButton::assign(QString& member, const QString& name)
{
    if (member == name)
        return;
    member = name;
    update();
}

const QString& ImageButton::currentImageName() const
{
    if (!isEnabled())
        return m_disabled.isEmpty() ? m_image : m_disabled;
    if (isDown())
        return m_pressed.isEmpty() ? m_image : m_pressed;
    if (underMouse())
        return m_hover.isEmpty() ? m_image : m_hover;
    return m_image;
}

void ImageButton::paintEvent(QPaintEvent*)
{
    if (m_alpha <= 0.0)
        return;
    QPainter painter(this);
    painter.setOpacity(m_alpha);
    painter.drawPixmap(0, 0, namedPixmap(currentImageName(), size(), devicePixelRatioF()));
}

} // namespace lumbrix
