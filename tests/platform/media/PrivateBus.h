// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A message bus that nobody else uses.
#pragma once

#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>

#include <functional>

namespace lumbrix::test
{

/// Ends with its owner. Main thread.
class PrivateBus
{
public:
    PrivateBus();
    ~PrivateBus();
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    const QString& address() const { return m_address; }
    /// A connection of its own for each name.
    QDBusConnection connect(const QString& name) const;

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
};

/// Runs the event loop until the condition holds; whether it does, after some seconds.
bool waitUntil(const std::function<bool()>& condition);

} // namespace lumbrix::test
