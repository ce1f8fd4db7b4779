// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A message bus that nobody else uses.
#pragma once

#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>

#include <functional>
#include <memory>

#include "Process.h"

namespace lumbrix::test
{

/// Ends with its owner. Main thread.
class PrivateBus
{
public:
    PrivateBus();

    const QString& address() const { return m_address; }
    /// A connection of its own for each name.
    QDBusConnection connect(const QString& name) const;

private:
    QTemporaryDir m_folder;
    QString m_address;
    std::unique_ptr<privatedesk::Process> m_daemon;
};

/// Runs the event loop until the condition holds; whether it does, after some seconds.
bool waitUntil(const std::function<bool()>& condition);

} // namespace lumbrix::test
