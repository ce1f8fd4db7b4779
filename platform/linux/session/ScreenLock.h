// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Whether the screen is locked or saved, or the machine goes to sleep, as screen savers and the
// login manager tell it.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QStringList>
#include <QtCore/QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusServiceWatcher>
#include <QtDBus/QDBusUnixFileDescriptor>

#include <functional>
#include <memory>
#include <set>

#include "platform/linux/docks/SocketProbe.h"

namespace lumbrix::platform
{

/// Main thread. Starts no service and waits for none: where a bus is silent, it tells nothing.
class ScreenLock final : public QObject
{
    Q_OBJECT

public:
    /// `changed` is told whether somebody may see the screen who is not the user: when that
    /// changes, and when a lock is asked for that nobody may answer.
    ScreenLock(const QDBusConnection& session, std::function<void(bool isAway)> changed);

    /// The bus of the login manager, which may be found out later.
    void watchLogin(const QDBusConnection& system);
    /// That of the machine, once it has shown to answer.
    void findLogin();

    bool isAway() const { return !m_reasons.empty(); }

private Q_SLOTS:
    void activeChanged(bool isActive, const QDBusMessage& signal);
    void prepareForSleep(bool starts);
    void lockRequested();
    void unlocked();
    void propertiesChanged(const QString& interface, const QVariantMap& changed,
                           const QStringList& invalidated);

private:
    void set(const QString& reason, bool holds);
    void watchSession(const QString& path);
    void askWhetherLocked(const QString& path);
    void delaySleep();

    QDBusConnection m_session;
    QDBusConnection m_system;
    const std::function<void(bool)> m_changed;
    std::set<QString> m_reasons;         ///< why the user is away: what tells so
    QDBusServiceWatcher m_savers;        ///< those that say so
    QDBusServiceWatcher m_login;         ///< the login manager
    QDBusUnixFileDescriptor m_inhibitor; ///< while it is open, sleep waits for us a little
    std::unique_ptr<SocketProbe> m_probe;
};

} // namespace lumbrix::platform
