// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Requesting access: the server always grants it; programs answer over the accessibility bus once
// that is turned on.
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>

#include "platform/StringLiterals.h"
#include "platform/linux/accessibility/X11Accessibility.h"

namespace lumbrix::platform
{

void X11Accessibility::enableAPI()
{
    QDBusMessage request = QDBusMessage::createMethodCall(
        u"org.a11y.Bus"_s, u"/org/a11y/bus"_s, u"org.freedesktop.DBus.Properties"_s, u"Set"_s);
    request << u"org.a11y.Status"_s << u"IsEnabled"_s << QVariant::fromValue(QDBusVariant(true));
    QDBusConnection::sessionBus().send(request); // the reply is not needed
}

void X11Accessibility::openAPIPreferences()
{
    // The first one that the desktop has.
    for (const char* program : {"xfce4-accessibility-settings", "mate-at-properties",
                                "gnome-universal-access-panel", "kcm_access"})
        if (m.workspace.launchApplication(QString::fromLatin1(program)))
            return;
}

} // namespace lumbrix::platform
