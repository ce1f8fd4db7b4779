// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/PrefsToolbar.h"

#include <QtGui/QFocusEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QHBoxLayout>

#include <algorithm>

#include "preview/NamedImage.h"

namespace lumbrix
{
namespace
{

constexpr int iconSide = 32;
constexpr int paddingTop = 7;
constexpr int paddingBottom = 6;
constexpr int paddingSide = 10;
constexpr int gap = 3; // between icon and label
constexpr int smallestWidth = 62;
constexpr qreal cornerRadius = 7;

QColor withAlpha(QColor color, double alpha)
{
    color.setAlphaF(static_cast<float>(alpha));
    return color;
}

} // namespace

PrefsToolbarItem::PrefsToolbarItem(const QString& identifier, const QString& label,
                                   const QString& image, QWidget* parent)
    : QAbstractButton(parent), m_identifier(identifier), m_label(label), m_image(image)
{
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setObjectName(identifier);
    setAccessibleName(label);
}

QSize PrefsToolbarItem::sizeHint() const
{
    const QFontMetrics metrics = fontMetrics();
    return {std::max(smallestWidth, metrics.horizontalAdvance(m_label) + 2 * paddingSide),
            paddingTop + iconSide + gap + metrics.height() + paddingBottom};
}

void PrefsToolbarItem::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette().color(QPalette::WindowText);
    const double shade = isDown() ? 0.17 : isChecked() ? 0.11 : underMouse() ? 0.05 : 0.0;
    const QRectF body = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(withAlpha(ink, shade));
    painter.drawRoundedRect(body, cornerRadius, cornerRadius);
    if (hasFocus() && m_isFocusShown) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRoundedRect(body, cornerRadius, cornerRadius);
    }
    painter.drawPixmap((width() - iconSide) / 2, paddingTop,
                       namedPixmap(m_image, {iconSide, iconSide}, devicePixelRatioF()));
    painter.setPen(ink);
    const int top = paddingTop + iconSide + gap;
    painter.drawText(QRect(0, top, width(), fontMetrics().height()), Qt::AlignCenter, m_label);
}

bool PrefsToolbarItem::event(QEvent* event)
{
    if (event->type() == QEvent::FontChange)
        updateGeometry();
    return QAbstractButton::event(event);
}

void PrefsToolbarItem::focusInEvent(QFocusEvent* event)
{
    m_isFocusShown =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    QAbstractButton::focusInEvent(event);
}

PrefsToolbar::PrefsToolbar(QWidget* parent) : QWidget(parent), m_layout(new QHBoxLayout(this))
{
    m_layout->setContentsMargins(10, 5, 10, 6);
    m_layout->setSpacing(1);
    m_layout->setAlignment(Qt::AlignHCenter);
    connect(&m_group, &QButtonGroup::buttonClicked, this, [this](const QAbstractButton* button) {
        Q_EMIT chosen(static_cast<const PrefsToolbarItem*>(button)->identifier());
    });
}

PrefsToolbarItem* PrefsToolbar::addItem(const QString& identifier, const QString& label,
                                        const QString& image)
{
    auto* item = new PrefsToolbarItem(identifier, label, image, this);
    m_layout->addWidget(item);
    m_group.addButton(item);
    return item;
}

void PrefsToolbar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QRect line(0, height() - 1, width(), 1);
    painter.fillRect(line, withAlpha(palette().color(QPalette::WindowText), 0.17));
}

} // namespace lumbrix
