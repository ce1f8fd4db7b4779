// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/AccessibleBus.h"

#include <QtDBus/QDBusPendingCallWatcher>

#include <algorithm>

#include "platform/StringLiterals.h"
#include "platform/linux/docks/AccessibleQuestions.h"

namespace lumbrix::platform
{

namespace
{

constexpr int timeoutMilliseconds = 5000;
constexpr std::size_t maximumApplications = 256;

const QString& daemon()
{
    static const QString name = u"org.freedesktop.DBus"_s;
    return name;
}

const QString& eventInterface()
{
    static const QString name = u"org.a11y.atspi.Event.Object"_s;
    return name;
}

QDBusMessage daemonCall(const QString& method)
{
    return QDBusMessage::createMethodCall(daemon(), u"/org/freedesktop/DBus"_s, daemon(), method);
}

QDBusMessage registryCall(const QString& path, const QString& interface, const QString& method)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(u"org.a11y.atspi.Registry"_s, path, interface, method);
    message.setAutoStartService(false);
    return message;
}

QString matchRule(const AccessibleRef& element)
{
    return u"type='signal',sender='%1',path='%2',interface='%3'"_s.arg(element.bus, element.path,
                                                                       eventInterface());
}

QString freshConnectionName()
{
    static int count = 0;
    return u"lumbrix-accessibility-%1"_s.arg(++count);
}

} // namespace

AccessibleBus::AccessibleBus(const QDBusConnection& session)
    : m_session(session), m_bus(QDBusConnection(QString()))
{
}

AccessibleBus::~AccessibleBus() { close(); }

void AccessibleBus::open(std::function<void(bool)> done)
{
    close();
    QDBusMessage message = QDBusMessage::createMethodCall(u"org.a11y.Bus"_s, u"/org/a11y/bus"_s,
                                                          u"org.a11y.Bus"_s, u"GetAddress"_s);
    message.setAutoStartService(false);
    send(m_session, message, [this, done = std::move(done)](const QDBusMessage& reply) mutable {
        if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != u"s") {
            done(false);
            return;
        }
        const QString address = reply.arguments().constFirst().toString();
        m_probe =
            std::make_unique<SocketProbe>([this, address, done = std::move(done)](bool answers) {
                if (answers)
                    connectTo(address, done);
                else
                    done(false);
            });
        m_probe->start(address);
    });
}

// Qt's connection to a bus blocks until the bus answers its Hello call. A peer-to-peer connection
// does not, and the bus accepts one when Hello is sent explicitly.
void AccessibleBus::connectTo(const QString& address, std::function<void(bool)> done)
{
    m_bus = QDBusConnection::connectToPeer(address, freshConnectionName());
    if (!m_bus.isConnected()) {
        done(false);
        return;
    }
    listen();
    send(m_bus, daemonCall(u"Hello"_s), [this, done = std::move(done)](const QDBusMessage& reply) {
        m_isOpen = reply.type() == QDBusMessage::ReplyMessage;
        done(m_isOpen);
    });
}

// Queued, because the callbacks may close the connection.
void AccessibleBus::listen()
{
    m_events = std::make_unique<AccessibleEvents>();
    connect(m_events.get(), &AccessibleEvents::moved, this, m_moved, Qt::QueuedConnection);
    connect(m_events.get(), &AccessibleEvents::lost, this, &AccessibleBus::connectionBroke,
            Qt::QueuedConnection);
    m_bus.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                  u"Disconnected"_s, m_events.get(), SLOT(disconnected()));
    for (const QString& event : {u"BoundsChanged"_s, u"ChildrenChanged"_s}) {
        m_bus.connect(QString(), QString(), eventInterface(), event, m_events.get(),
                      SLOT(elementMoved(QDBusMessage)));
    }
}

void AccessibleBus::close()
{
    ++m_generation;
    m_isOpen = false;
    m_events.reset();
    m_probe.reset();
    m_watched.clear();
    m_registered.clear();
    const QString name = m_bus.name();
    if (!name.isEmpty()) {
        m_bus = QDBusConnection(QString());
        QDBusConnection::disconnectFromPeer(name);
    }
}

void AccessibleBus::connectionBroke()
{
    if (!m_bus.isConnected() && !m_bus.name().isEmpty()) {
        close();
        m_lost();
    }
}

void AccessibleBus::send(const QDBusConnection& bus, const QDBusMessage& message, Answer answer)
{
    const QDBusPendingCall pending =
        bus.isConnected() ? bus.asyncCall(message, timeoutMilliseconds)
                          : QDBusPendingCall::fromError(QDBusError(QDBusError::Disconnected, {}));
    auto* watcher = new QDBusPendingCallWatcher(pending, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, generation = m_generation,
             answer = std::move(answer)](QDBusPendingCallWatcher* finished) mutable {
                finished->deleteLater();
                if (generation == m_generation)
                    answer(finished->reply());
            });
}

void AccessibleBus::call(const QDBusMessage& message, Answer answer)
{
    send(m_bus, message, std::move(answer));
}

void AccessibleBus::childrenOf(const AccessibleRef& element, std::size_t maximum,
                               Then<std::optional<Refs>> then)
{
    call(childrenQuestion(element), [maximum, then = std::move(then)](const QDBusMessage& reply) {
        if (reply.type() == QDBusMessage::ReplyMessage)
            then(accessibleRefs(reply, maximum));
        else
            then(std::nullopt);
    });
}

void AccessibleBus::roleOf(const AccessibleRef& element, Then<std::optional<std::uint32_t>> then)
{
    call(roleQuestion(element),
         [then = std::move(then)](const QDBusMessage& reply) { then(roleIn(reply)); });
}

void AccessibleBus::nameOf(const AccessibleRef& element, Then<std::optional<QString>> then)
{
    call(nameQuestion(element),
         [then = std::move(then)](const QDBusMessage& reply) { then(nameIn(reply)); });
}

void AccessibleBus::extentsOf(const AccessibleRef& element, Then<std::optional<QRect>> then)
{
    call(extentsQuestion(element),
         [then = std::move(then)](const QDBusMessage& reply) { then(extentsIn(reply)); });
}

void AccessibleBus::findApplication(std::int32_t pid, std::function<void(const QString&)> found)
{
    const QDBusMessage message = registryCall(u"/org/a11y/atspi/accessible/root"_s,
                                              u"org.a11y.atspi.Accessible"_s, u"GetChildren"_s);
    call(message, [this, pid, found = std::move(found)](const QDBusMessage& reply) {
        const std::vector<AccessibleRef> all = accessibleRefs(reply, maximumApplications);
        struct Search {
            std::size_t missing = 0;
            QString name;
        };
        const auto search = std::make_shared<Search>();
        search->missing = all.size();
        if (all.empty())
            found(QString());
        for (const AccessibleRef& application : all) {
            QDBusMessage question = daemonCall(u"GetConnectionUnixProcessID"_s);
            question << application.bus;
            call(question,
                 [pid, found, search, name = application.bus](const QDBusMessage& answer) {
                     if (answer.type() == QDBusMessage::ReplyMessage &&
                         answer.arguments().value(0).toUInt() == static_cast<quint32>(pid)) {
                         search->name = name;
                     }
                     if (--search->missing == 0)
                         found(search->name);
                 });
        }
    });
}

// If this fails there will be no notifications, and the buttons are read only when windows change.
void AccessibleBus::watch(const std::set<AccessibleRef>& elements)
{
    if (!m_isOpen || elements == m_watched)
        return;
    for (const AccessibleRef& element : m_watched)
        if (!elements.contains(element))
            tellBus(u"RemoveMatch"_s, matchRule(element));
    for (const AccessibleRef& element : elements) {
        if (!m_watched.contains(element))
            tellBus(u"AddMatch"_s, matchRule(element));
        // Sent to this one program only, so that no other program starts sending events.
        if (m_registered.insert(element.bus).second) {
            for (const QString& event :
                 {u"object:bounds-changed"_s, u"object:children-changed"_s}) {
                QDBusMessage message =
                    registryCall(u"/org/a11y/atspi/registry"_s, u"org.a11y.atspi.Registry"_s,
                                 u"RegisterEvent"_s);
                message << event << QStringList() << element.bus;
                call(message, [](const QDBusMessage&) {});
            }
        }
    }
    m_watched = elements;
}

void AccessibleBus::tellBus(const QString& method, const QString& rule)
{
    QDBusMessage message = daemonCall(method);
    message << rule;
    call(message, [](const QDBusMessage&) {});
}

} // namespace lumbrix::platform
