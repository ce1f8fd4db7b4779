// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Asking for access: the server always gives it, programs answer over the accessibility bus once
// that is on.
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>

#include "platform/linux/accessibility/X11Accessibility.h"

namespace lumbrix::platform
{

void X11Accessibility::enableAPI()
{
    QDBusMessage request = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"));
    request << QStringLiteral("org.a11y.Status") << QStringLiteral("IsEnabled")
            << QVariant::fromValue(QDBusVariant(true));
    QDBusConnection::sessionBus().send(request); // nobody waits for the answer
}

void X11Accessibility::openAPIPreferences()
{
    // Whichever the desktop has.
    for (const char* program : {"xfce4-accessibility-settings", "mate-at-properties",
                                "gnome-universal-access-panel", "kcm_access"}) {
        if (m.workspace.launchApplication(QString::fromLatin1(program)))
            return;
    }
}

} // namespace lumbrix::platform
