// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/NumberLabel.h"
#include "platform/StringLiterals.h"

#include <QtGui/QFontInfo>
#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace lumbrix
{

NumberLabel::NumberLabel(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
}

void NumberLabel::setText(const QString& text)
{
    if (m_text == text)
        return;
    m_text = text;
    update();
}

void NumberLabel::setPixelSize(int size)
{
    if (font().pixelSize() == size)
        return;
    QFont sized = font();
    sized.setPixelSize(std::max(size, 1));
    setFont(sized);
    update();
}

void NumberLabel::setTextColor(const QColor& color)
{
    if (m_textColor == color)
        return;
    m_textColor = color;
    update();
}

QSize NumberLabel::sizeHint() const
{
    const QFontMetricsF metrics(font());
    return {static_cast<int>(std::ceil(metrics.horizontalAdvance(m_text))),
            static_cast<int>(std::ceil(metrics.capHeight()))};
}

void NumberLabel::paintEvent(QPaintEvent*)
{
    // Measured at the device's resolution: in points a hinted digit may be taller than it is on the
    // screen. The baseline is on a whole pixel, so that the lower edges of the digits are sharp.
    const qreal scale = devicePixelRatioF();
    QFont drawn = font();
    drawn.setPixelSize(qRound(QFontInfo(font()).pixelSize() * scale));
    const QFontMetricsF metrics(drawn);
    const qreal figure = metrics.tightBoundingRect(u"1"_s).height();
    const QPointF start((width() - metrics.horizontalAdvance(m_text) / scale) / 2,
                        std::round((height() * scale + figure) / 2) / scale);
    QPainter painter(this);
    if (m_shadowColor.alpha() > 0) {
        painter.setPen(m_shadowColor);
        painter.drawText(start + QPointF(0, 1), m_text);
    }
    painter.setPen(m_textColor);
    painter.drawText(start, m_text);
}

} // namespace lumbrix
