// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/EventLine.h"

#include <QtGui/QFontMetricsF>
#include <QtGui/QPainter>

#include "platform/StringLiterals.h"
#include "preview/DisplayText.h"

namespace lumbrix
{
namespace
{

QFont lineFont()
{
    QFont font;
    font.setFamilies(QStringList{u"Lucida Grande"_s} + font.families());
    font.setBold(true);
    font.setPixelSize(12);
    return font;
}

} // namespace

EventLine::EventLine(const QString& text, const QColor& color, QWidget* parent)
    : QWidget(parent), m_text(displayText(text)), m_color(color)
{
    setFont(lineFont());
    // Clicks go to the panel below.
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

qreal EventLine::widthOf(const QString& text)
{
    return QFontMetricsF(lineFont()).horizontalAdvance(displayText(text));
}

void EventLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(m_color);
    // Half a point more, as the given width was rounded.
    const QString line = QFontMetricsF(font()).elidedText(m_text, Qt::ElideRight, width() + 0.5);
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, line);
}

} // namespace lumbrix
