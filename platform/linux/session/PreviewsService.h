// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The D-Bus interface org.lumbrix.Previews1, by which other programs request previews. Its contract
// is in docs/dbus.md.
#pragma once

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusContext>
#include <QtDBus/QDBusServiceWatcher>

#include "platform/linux/accessibility/PlaceRequests.h"

class QDBusArgument;

namespace lumbrix::platform
{

/// A rectangle on the bus: x, y, width and height. Not a QRect, whose arithmetic could overflow
/// with values from other programs.
struct BusRectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};
QDBusArgument& operator<<(QDBusArgument& argument, const BusRectangle& rectangle);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusRectangle& rectangle);

/// Main thread. Reachable under all bus names of this program.
class PreviewsService final : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.lumbrix.Previews1")
    // The signal goes to one receiver only, so it is not a Qt signal of this object.
    Q_CLASSINFO("D-Bus Introspection",
                ""
                "  <interface name=\"org.lumbrix.Previews1\">\n"
                "    <method name=\"ShowForApplication\">\n"
                "      <arg name=\"id\" type=\"s\" direction=\"in\"/>\n"
                "      <arg name=\"place\" type=\"(iiii)\" direction=\"in\"/>\n"
                "      <arg name=\"edge\" type=\"s\" direction=\"in\"/>\n"
                "    </method>\n"
                "    <method name=\"ShowForWindows\">\n"
                "      <arg name=\"windows\" type=\"au\" direction=\"in\"/>\n"
                "      <arg name=\"place\" type=\"(iiii)\" direction=\"in\"/>\n"
                "      <arg name=\"edge\" type=\"s\" direction=\"in\"/>\n"
                "    </method>\n"
                "    <method name=\"Hide\"/>\n"
                "    <signal name=\"Hidden\"/>\n"
                "  </interface>\n")

public:
    PreviewsService(PlaceRequests& requests, const QDBusConnection& bus);
    ~PreviewsService() override;

public Q_SLOTS:
    // D-Bus methods.
    void ShowForApplication(const QString& id, const lumbrix::platform::BusRectangle& place,
                            const QString& edge);
    void ShowForWindows(const QList<uint>& windows, const lumbrix::platform::BusRectangle& place,
                        const QString& edge);
    void Hide();

private:
    void answer(const std::optional<RequestError>& error);
    void follow(const QString& caller);
    void callerEnded(const QString& caller);
    void rowEnded();

    PlaceRequests& m_requests;
    QDBusConnection m_bus;
    QDBusServiceWatcher m_watcher;
    QString m_caller; ///< caller of the current row; empty if there is none or it has gone
};

} // namespace lumbrix::platform
