// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The accessibility bus, on which programs describe their user interface. Never waits for the bus
// or for a program.
#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include <functional>
#include <memory>
#include <set>

#include "platform/linux/docks/AccessibleTree.h"
#include "platform/linux/docks/SocketProbe.h"

namespace lumbrix::platform
{

/// Receives the signals of one connection. Must be destroyed before the connection, whose thread
/// would otherwise release it at some later time.
class AccessibleEvents final : public QObject
{
    Q_OBJECT

public Q_SLOTS:
    void elementMoved(const QDBusMessage& event) { Q_EMIT moved(event.service()); }
    void disconnected() { Q_EMIT lost(); }

Q_SIGNALS:
    void moved(const QString& application);
    void lost();
};

/// Main thread. Starts nothing: where no program has started the bus, it has nothing to tell.
class AccessibleBus final : public QObject, public AccessibleTree
{
    Q_OBJECT

public:
    /// The reply or an error.
    using Answer = std::function<void(const QDBusMessage&)>;

    /// `session` is the bus on which the address is requested.
    explicit AccessibleBus(const QDBusConnection& session);
    ~AccessibleBus() override;

    /// Calls back once with whether it is connected; never if the other side does not answer, nor
    /// after close().
    void open(std::function<void(bool)> done);
    /// Disconnects from the bus; pending calls are not answered any more.
    void close();
    bool isOpen() const { return m_isOpen; }

    /// `answer` is called from the event loop, with an error after a timeout of some seconds.
    void call(const QDBusMessage& message, Answer answer);
    void childrenOf(const AccessibleRef& element, std::size_t maximum,
                    Then<std::optional<Refs>> then) override;
    void roleOf(const AccessibleRef& element, Then<std::optional<std::uint32_t>> then) override;
    void nameOf(const AccessibleRef& element, Then<std::optional<QString>> then) override;
    void extentsOf(const AccessibleRef& element, Then<std::optional<QRect>> then) override;
    /// The unique name of the process's program on the bus, empty when it has none there.
    void findApplication(std::int32_t pid, std::function<void(const QString&)> found);
    /// From now on these elements are watched, for as long as the connection lasts.
    void watch(const std::set<AccessibleRef>& elements);

    // Must be set before open().
    /// Called when a watched element of this program has a new layout or other children.
    void setMoved(std::function<void(const QString& application)> call)
    {
        m_moved = std::move(call);
    }
    /// The connection broke; as after close().
    void setLost(std::function<void()> call) { m_lost = std::move(call); }

private:
    void connectTo(const QString& address, std::function<void(bool)> done);
    void listen();
    void connectionBroke();
    void send(const QDBusConnection& bus, const QDBusMessage& message, Answer answer);
    void tellBus(const QString& method, const QString& rule);

    QDBusConnection m_session;
    QDBusConnection m_bus;
    std::unique_ptr<AccessibleEvents> m_events;
    std::unique_ptr<SocketProbe> m_probe;
    std::function<void(const QString&)> m_moved;
    std::function<void()> m_lost;
    bool m_isOpen = false;
    std::uint64_t m_generation = 0; ///< incremented by each close(), to drop late answers
    std::set<AccessibleRef> m_watched;
    std::set<QString> m_registered; ///< programs that were asked to send events
};

} // namespace lumbrix::platform
