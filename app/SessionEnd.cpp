// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/SessionEnd.h"

#include <QtCore/QEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QSessionManager>

namespace lumbrix
{

SessionEnd::SessionEnd(QGuiApplication& application)
{
    const auto answer = [](QSessionManager& manager) {
        manager.setRestartHint(QSessionManager::RestartNever);
    };
    connect(&application, &QGuiApplication::commitDataRequest, this, answer, Qt::DirectConnection);
    connect(&application, &QGuiApplication::saveStateRequest, this, answer, Qt::DirectConnection);
    application.installEventFilter(this);
}

/// The toolkit would ask every window to close first, and keep running if one of them refuses.
bool SessionEnd::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Quit)
        return QObject::eventFilter(watched, event);
    event->accept();
    Q_EMIT quitRequested();
    return true;
}

} // namespace lumbrix
