// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>

#include <functional>

namespace lumbrix::platform
{

/// Hears from the login manager that the computer is about to sleep. Main thread.
class SleepWatch : public QObject
{
    Q_OBJECT

public:
    /// `bus`: the system's. Without one, or a login manager on it, nothing is ever told.
    SleepWatch(QDBusConnection bus, std::function<void()> willSleep);

private Q_SLOTS:
    void prepareForSleep(bool isBeginning);

private:
    QDBusConnection m_bus;
    const std::function<void()> m_willSleep;
};

} // namespace lumbrix::platform
