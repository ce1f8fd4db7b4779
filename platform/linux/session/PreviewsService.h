// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The D-Bus interface org.lumbrix.Previews1, by which other programs ask for previews. What it
// promises them is in docs/dbus.md.
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

/// A rectangle on the bus: x, y, width and height. Not QRect, whose own arithmetic overflows with
/// what others may send.
struct BusRectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
};
QDBusArgument& operator<<(QDBusArgument& argument, const BusRectangle& rectangle);
const QDBusArgument& operator>>(const QDBusArgument& argument, BusRectangle& rectangle);

/// Main thread. Answers to whatever names this program has on the bus.
class PreviewsService final : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.lumbrix.Previews1")
    // The signal goes to one receiver only, so it is none of this object's.
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
    // As other programs call them.
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
    QString m_caller; ///< whose row is up; empty without a row, or when the caller has gone
};

} // namespace lumbrix::platform
