// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVirtualObject>

#include <functional>

namespace lumbrix::test
{

/// A service on the bus for as long as it lasts, with one answer to each call of its objects.
/// Main thread; the connection is its own.
class TestService final : public QDBusVirtualObject
{
public:
    using Answer = std::function<QVariant(const QDBusMessage& question)>;

    TestService(const QDBusConnection& bus, const QString& name, const QString& path, Answer answer)
        : m_bus(bus), m_path(path), m_answer(std::move(answer))
    {
        m_bus.registerVirtualObject(path, this, QDBusConnection::SubPath);
        if (!m_bus.registerService(name))
            qFatal("a test service could not join the bus");
    }
    ~TestService() override
    {
        // Else the bus's own thread would let go of this, some time later.
        m_bus.unregisterObject(m_path);
        disconnect();
        const QString name = m_bus.name();
        m_bus = QDBusConnection(QString());
        QDBusConnection::disconnectFromBus(name);
    }
    void tell(const QString& path, const QString& interface, const QString& name,
              const QVariantList& arguments)
    {
        QDBusMessage signal = QDBusMessage::createSignal(path, interface, name);
        signal.setArguments(arguments);
        m_bus.send(signal);
    }
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override
    {
        return connection.send(message.createReply(m_answer(message)));
    }

private:
    QDBusConnection m_bus;
    const QString m_path;
    const Answer m_answer;
};

} // namespace lumbrix::test
