// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/Cells.h"

#include <QtGui/QPainter>

#include "preview/IgnoredAccessible.h"
#include "preview/NamedImage.h"

namespace lumbrix
{

LXButtonCell::LXButtonCell(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
    ignorePanelsInAccessibility();
}

LXImageCell::LXImageCell(QWidget* parent) : PictureView(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    ignorePanelsInAccessibility();
}

void LXImageCell::setImageName(const QString& name)
{
    if (m_imageName == name)
        return;
    m_imageName = name;
    update();
}

void LXImageCell::paintEvent(QPaintEvent* event)
{
    if (m_imageName.isEmpty()) {
        PictureView::paintEvent(event);
        return;
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, namedPixmap(m_imageName, size(), devicePixelRatioF()));
}

} // namespace lumbrix
