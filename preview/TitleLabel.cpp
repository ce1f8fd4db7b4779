// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/TitleLabel.h"

#include <QtGui/QPainter>

#include <utility>

#include "preview/DisplayText.h"
#include "preview/ElidedTitle.h"

namespace lumbrix
{

TitleLabel::TitleLabel(QWidget* parent) : QWidget(parent)
{
    // Clicks go to the panel below.
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void TitleLabel::setText(const QString& text)
{
    const QString line = displayText(text);
    if (m_text == line)
        return;
    m_text = line;
    m_elidedWidth = -1;
    m_naturalWidth = -1;
    update();
}

void TitleLabel::setAlike(qsizetype characters)
{
    if (std::exchange(m_alike, characters) == characters)
        return;
    m_elidedWidth = -1;
    update();
}

void TitleLabel::setPixelSize(int size)
{
    if (font().pixelSize() == size)
        return;
    QFont sized = font();
    sized.setPixelSize(size);
    setFont(sized);
    m_elidedWidth = -1;
    m_naturalWidth = -1;
}

int TitleLabel::padding() const { return m_haloColor.alpha() > 0 ? 9 : 2; }

int TitleLabel::naturalWidth() const
{
    if (m_naturalWidth < 0)
        m_naturalWidth = fontMetrics().horizontalAdvance(m_text) + 2 * padding() + 1;
    return m_naturalWidth;
}

void TitleLabel::paintEvent(QPaintEvent*)
{
    if (m_text.isEmpty())
        return;
    QPainter painter(this);
    if (m_haloColor.alpha() > 0) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(m_haloColor);
        painter.drawRoundedRect(QRectF(rect()), height() / 2.0, height() / 2.0);
    }
    const QRect line = rect().adjusted(padding(), 0, -padding(), 0);
    if (m_elidedWidth != line.width()) {
        m_elidedWidth = line.width();
        m_elided = elidedTitle(m_text, m_alike, line.width(), fontMetrics());
    }
    painter.setPen(m_textColor);
    painter.drawText(line, Qt::AlignCenter | Qt::TextSingleLine, m_elided);
}

} // namespace lumbrix
