// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/DockIcon.h"

#include <QtCore/QEvent>
#include <QtWidgets/QWidget>

namespace lumbrix
{

DockIcon::DockIcon(QWidget& window) : m_window(&window)
{
    window.installEventFilter(this);
    if (!window.isVisible())
        window.showMinimized();
}

bool DockIcon::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != m_window || event->type() != QEvent::Close)
        return QObject::eventFilter(watched, event);
    event->ignore();
    m_window->showMinimized();
    return true;
}

} // namespace lumbrix
