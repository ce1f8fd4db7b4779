// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The bus that programs tell their user interface on, without ever waiting for it or for them.
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

/// What one connection tells. It goes before its connection, whose thread would otherwise let go of
/// it at some later time.
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

    /// `session` is where the bus's address is asked for.
    explicit AccessibleBus(const QDBusConnection& session);
    ~AccessibleBus() override;

    /// Tells once whether it is connected now; never where somebody does not answer, nor after
    /// close().
    void open(std::function<void(bool)> done);
    /// Lets go of the bus; calls under way are not answered any more.
    void close();
    bool isOpen() const { return m_isOpen; }

    /// `answer` comes from the event loop, after some seconds with an error if need be.
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

    // Before open.
    /// A watched element of this program was laid out anew or has other children.
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
    std::uint64_t m_generation = 0; ///< grows with each closing, to drop late answers
    std::set<AccessibleRef> m_watched;
    std::set<QString> m_registered; ///< programs that were asked to tell
};

} // namespace lumbrix::platform
