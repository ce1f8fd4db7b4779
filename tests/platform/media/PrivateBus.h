// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A message bus that nobody else uses.
#pragma once

#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVirtualObject>

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

/// What answers at a path of a bus and below it, as long as it lasts. Main thread, while the event
/// loop runs; the connection is its own.
class BusObject : public QDBusVirtualObject
{
public:
    enum class Manners {
        Good,
        Hangs,    ///< never replies
        Nonsense, ///< replies with something else than was asked for
        Refuses,  ///< replies with errors, as the bus does for one that is gone
        Crowded,  ///< tells of thousands where it can tell of any
    };
    Manners manners = Manners::Good;

    ~BusObject() override;
    void tell(const QString& path, const QString& interface, const QString& name,
              const QVariantList& arguments = {});
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) final;

protected:
    /// With these names on the bus.
    BusObject(const QDBusConnection& bus, const QString& path, const QStringList& names);
    /// Called for every question; what it replies when it has good manners.
    virtual QVariantList answer(const QDBusMessage& question) = 0;

    QDBusConnection m_bus;

private:
    const QString m_path;
};

/// Runs the event loop until the condition holds; whether it does, after some seconds.
bool waitUntil(const std::function<bool()>& condition);

} // namespace lumbrix::test
