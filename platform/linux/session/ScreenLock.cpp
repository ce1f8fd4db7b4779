// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/session/ScreenLock.h"
#include "platform/Log.h"
#include "platform/StringLiterals.h"

#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusVariant>

namespace lumbrix::platform
{
namespace
{

constexpr int timeoutMilliseconds = 5000;

/// Each desktop's own; they have the signal in common.
constexpr const char* savers[] = {"org.freedesktop.ScreenSaver", "org.gnome.ScreenSaver",
                                  "org.mate.ScreenSaver",        "org.cinnamon.ScreenSaver",
                                  "org.xfce.ScreenSaver",        "org.kde.screensaver"};

const QString login = u"org.freedesktop.login1"_s;
const QString loginPath = u"/org/freedesktop/login1"_s;
const QString loginManager = u"org.freedesktop.login1.Manager"_s;
const QString loginSession = u"org.freedesktop.login1.Session"_s;
const QString properties = u"org.freedesktop.DBus.Properties"_s;

// What keeps the user away, beside the unique names of screen savers.
const QString locked = u"locked"_s;
const QString asleep = u"asleep"_s;

QDBusMessage callOf(const QString& path, const QString& interface, const QString& method)
{
    QDBusMessage message = QDBusMessage::createMethodCall(login, path, interface, method);
    message.setAutoStartService(false);
    return message;
}

/// Has the answer come to the owner, if there is one and the owner is still there then.
template <class Value, class Take>
void ask(const QDBusConnection& bus, const QDBusMessage& question, QObject* owner, Take take)
{
    auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question, timeoutMilliseconds), owner);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, owner,
                     [take](QDBusPendingCallWatcher* it) {
                         it->deleteLater();
                         const QDBusPendingReply<Value> reply = *it;
                         if (reply.isValid())
                             take(reply.value());
                     });
}

} // namespace

ScreenLock::ScreenLock(const QDBusConnection& session, std::function<void(bool)> changed)
    : m_session(session), m_system(QString()), m_changed(std::move(changed))
{
    for (QDBusServiceWatcher* watcher : {&m_savers, &m_login})
        watcher->setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    if (!m_session.isConnected())
        return;
    m_savers.setConnection(m_session);
    // One that has crashed says no more that it is over.
    connect(&m_savers, &QDBusServiceWatcher::serviceUnregistered, this,
            [this](const QString& name) {
                m_savers.removeWatchedService(name);
                set(name, false);
            });
    for (const char* saver : savers)
        m_session.connect({}, {}, QString::fromLatin1(saver), u"ActiveChanged"_s, this,
                          SLOT(activeChanged(bool, QDBusMessage)));
}

void ScreenLock::findLogin()
{
    const QString named = qEnvironmentVariable("DBUS_SYSTEM_BUS_ADDRESS");
    const QString address = named.isEmpty() ? u"unix:path=/run/dbus/system_bus_socket"_s : named;
    m_probe = std::make_unique<SocketProbe>([this](bool answers) {
        if (answers)
            watchLogin(QDBusConnection::systemBus());
    });
    m_probe->start(address);
}

void ScreenLock::watchLogin(const QDBusConnection& system)
{
    m_system = system;
    if (!m_system.isConnected())
        return;
    m_login.setConnection(m_system);
    m_login.addWatchedService(login);
    connect(&m_login, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        unlocked();
        set(asleep, false);
    });
    m_system.connect(login, loginPath, loginManager, u"PrepareForSleep"_s, this,
                     SLOT(prepareForSleep(bool)));
    delaySleep();
    QDBusMessage question = callOf(loginPath, loginManager, u"GetSession"_s);
    question << u"auto"_s; // ours, also where we were started by the user's own manager
    ask<QDBusObjectPath>(m_system, question, this,
                         [this](const QDBusObjectPath& path) { watchSession(path.path()); });
}

void ScreenLock::watchSession(const QString& path)
{
    m_system.connect(login, path, loginSession, u"Lock"_s, this, SLOT(lockRequested()));
    m_system.connect(login, path, loginSession, u"Unlock"_s, this, SLOT(unlocked()));
    m_system.connect(login, path, properties, u"PropertiesChanged"_s, this,
                     SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
    askWhetherLocked(path);
}

void ScreenLock::askWhetherLocked(const QString& path)
{
    QDBusMessage question = callOf(path, properties, u"Get"_s);
    question << loginSession << u"LockedHint"_s;
    ask<QDBusVariant>(m_system, question, this,
                      [this](const QDBusVariant& hint) { set(locked, hint.variant().toBool()); });
}

// Without it the machine may be asleep, with our pictures in its memory, before we hear of it.
void ScreenLock::delaySleep()
{
    QDBusMessage question = callOf(loginPath, loginManager, u"Inhibit"_s);
    question << u"sleep"_s << u"Lumbrix"_s << u"forgets the pictures of windows"_s << u"delay"_s;
    ask<QDBusUnixFileDescriptor>(m_system, question, this,
                                 [this](const QDBusUnixFileDescriptor& inhibitor) {
                                     if (!m_reasons.contains(asleep))
                                         m_inhibitor = inhibitor;
                                 });
}

void ScreenLock::activeChanged(bool isActive, const QDBusMessage& signal)
{
    const QString saver = signal.service();
    set(saver, isActive);
    if (!isActive) {
        m_savers.removeWatchedService(saver);
        return;
    }
    m_savers.addWatchedService(saver);
    // It may have gone before it was watched.
    QDBusMessage question =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"NameHasOwner"_s);
    question << saver;
    ask<bool>(m_session, question, this, [this, saver](bool isThere) {
        if (!isThere)
            set(saver, false);
    });
}

void ScreenLock::prepareForSleep(bool starts)
{
    qCDebug(log::session, "the computer %s", starts ? "goes to sleep" : "has woken up");
    set(asleep, starts);
    if (starts)
        m_inhibitor = {};
    else
        delaySleep();
}

// Whether a locker obeys is told by the hint, or by the locker; there may be none.
void ScreenLock::lockRequested()
{
    if (isAway())
        return;
    m_changed(true);
    m_changed(false);
}

void ScreenLock::unlocked() { set(locked, false); }

void ScreenLock::propertiesChanged(const QString& interface, const QVariantMap& changed,
                                   const QStringList&)
{
    const auto hint = changed.constFind(u"LockedHint"_s);
    if (interface == loginSession && hint != changed.constEnd())
        set(locked, hint->toBool());
}

void ScreenLock::set(const QString& reason, bool holds)
{
    const bool wasAway = isAway();
    if (holds)
        m_reasons.insert(reason);
    else
        m_reasons.erase(reason);
    if (isAway() != wasAway)
        m_changed(isAway());
}

} // namespace lumbrix::platform
