// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/ColorWell.h"
#include "platform/StringLiterals.h"

#include <QtGui/QPainter>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStylePainter>

namespace lumbrix
{

ColorWell::ColorWell(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::clicked, this, &ColorWell::showDialog);
}

void ColorWell::setColor(const QColor& color)
{
    m_color = color;
    setAccessibleDescription(color.isValid() ? color.name() : QString());
    update();
}

QSize ColorWell::sizeHint() const { return {64, fontMetrics().height() + 12}; }

void ColorWell::paintEvent(QPaintEvent*)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    option.initFrom(this);
    option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
    painter.drawControl(QStyle::CE_PushButton, option);
    QColor color = m_color;
    if (!isEnabled())
        color.setAlphaF(0.4F);
    painter.setRenderHint(QPainter::Antialiasing);
    QColor outline = palette().color(QPalette::WindowText);
    outline.setAlphaF(0.35F);
    painter.setPen(outline);
    painter.setBrush(color.isValid() ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(QRectF(rect()).adjusted(7.5, 6.5, -7.5, -6.5), 3, 3);
}

/// Not modal: the preferences stay usable beside it.
void ColorWell::showDialog()
{
    if (!m_dialog) {
        m_dialog = new QColorDialog(m_color, this);
        m_dialog->setAttribute(Qt::WA_DeleteOnClose);
        m_dialog->setWindowRole(u"colors"_s);
        m_dialog->setWindowTitle(tr("Colour of Window Counts – Lumbrix Preferences"));
        connect(m_dialog, &QColorDialog::currentColorChanged, this, &ColorWell::choose);
        connect(m_dialog, &QDialog::rejected, this, [this, before = m_color] { choose(before); });
    }
    m_dialog->show();
    m_dialog->raise();
    m_dialog->activateWindow();
}

void ColorWell::choose(const QColor& color)
{
    if (color == m_color)
        return;
    setColor(color);
    Q_EMIT colorChanged(color);
}

} // namespace lumbrix
