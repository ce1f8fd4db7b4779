// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/session/TrayWatcher.h"
#include "platform/Log.h"
#include "platform/StringLiterals.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusServiceWatcher>
#include <QtDBus/QDBusVariant>

namespace lumbrix::platform
{
namespace
{

constexpr int timeoutMilliseconds = 5000;

const QString& service()
{
    static const QString name = u"org.kde.StatusNotifierWatcher"_s;
    return name;
}

} // namespace

TrayWatcher::TrayWatcher(RunLoop& runLoop, x11::TrayWatch& screen, const QDBusConnection& bus)
    : m_screen(screen), m_bus(bus)
{
    m_screen.setChanged([&runLoop, changed = m_guard.ifAlive([this] { update(); })] {
        runLoop.performOnMainThread(changed, false);
    });
    m_isAvailable = m_screen.isTrayRunning();
    if (!m_bus.isConnected())
        return;
    auto* watcher =
        new QDBusServiceWatcher(service(), m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &TrayWatcher::askWatcher);
    for (const char* signal : {"StatusNotifierHostRegistered", "StatusNotifierHostUnregistered"})
        m_bus.connect(service(), QString(), service(), QString::fromLatin1(signal), this,
                      SLOT(askWatcher()));
    askWatcher();
}

TrayWatcher::~TrayWatcher() { m_screen.setChanged({}); }

void TrayWatcher::askWatcher()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        service(), u"/StatusNotifierWatcher"_s, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << service() << u"IsStatusNotifierHostRegistered"_s;
    // Do not start a tray.
    question.setAutoStartService(false);
    auto* answer =
        new QDBusPendingCallWatcher(m_bus.asyncCall(question, timeoutMilliseconds), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* it) {
        it->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *it;
        m_hasHost = reply.isValid() && reply.value().variant().toBool();
        update();
    });
}

void TrayWatcher::update()
{
    const bool isAvailable = m_hasHost || m_screen.isTrayRunning();
    if (std::exchange(m_isAvailable, isAvailable) == isAvailable)
        return;
    qCDebug(log::session, "there is %s tray", isAvailable ? "a" : "no");
    if (m_changed)
        m_changed();
}

} // namespace lumbrix::platform
