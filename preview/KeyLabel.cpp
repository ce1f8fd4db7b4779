// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/KeyLabel.h"

#include <QtGui/QPainter>

#include <algorithm>

namespace lumbrix
{

KeyLabel::KeyLabel(QWidget* parent) : LXTransparentButtonCell(parent)
{
    setAttribute(Qt::WA_Hover);
}

void KeyLabel::setPixelSize(int size)
{
    if (font().pixelSize() == size)
        return;
    QFont smaller = font();
    smaller.setPixelSize(size);
    setFont(smaller);
}

void KeyLabel::dressLike(const KeyLabel& other)
{
    m_textColor = other.m_textColor;
    m_fill = other.m_fill;
    update();
}

QSize KeyLabel::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {metrics.horizontalAdvance(text()) + 9, metrics.capHeight() + 8};
}

void KeyLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor fill = m_fill;
    if (underMouse() && isEnabled())
        fill.setAlpha(std::min(255, fill.alpha() * (isDown() ? 3 : 2)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect()), 4, 4);
    painter.setPen(m_textColor);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
}

} // namespace lumbrix
