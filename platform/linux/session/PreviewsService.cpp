// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/session/PreviewsService.h"
#include "platform/Log.h"
#include "platform/StringLiterals.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusError>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>

#include <utility>

namespace lumbrix::platform
{
namespace
{

const QString& objectPath()
{
    static const QString path = u"/org/lumbrix/Previews1"_s;
    return path;
}
const QString& interfaceName()
{
    static const QString name = u"org.lumbrix.Previews1"_s;
    return name;
}

QString nameOf(RequestError::Kind kind)
{
    switch (kind) {
    case RequestError::Kind::Disabled:
        return interfaceName() + u".Error.Disabled"_s;
    case RequestError::Kind::NothingToShow:
        return interfaceName() + u".Error.NothingToShow"_s;
    case RequestError::Kind::InvalidArguments:
        break;
    }
    return QDBusError::errorString(QDBusError::InvalidArgs);
}

RequestedPlace requested(const BusRectangle& place, const QString& edge)
{
    return {place.x, place.y, place.width, place.height, edge};
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const BusRectangle& rectangle)
{
    argument.beginStructure();
    argument << rectangle.x << rectangle.y << rectangle.width << rectangle.height;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, BusRectangle& rectangle)
{
    argument.beginStructure();
    argument >> rectangle.x >> rectangle.y >> rectangle.width >> rectangle.height;
    argument.endStructure();
    return argument;
}

PreviewsService::PreviewsService(PlaceRequests& requests, const QDBusConnection& bus)
    : m_requests(requests), m_bus(bus)
{
    qDBusRegisterMetaType<BusRectangle>();
    m_watcher.setConnection(m_bus);
    m_watcher.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&m_watcher, &QDBusServiceWatcher::serviceUnregistered, this,
            &PreviewsService::callerEnded);
    m_requests.setEnded([this] { rowEnded(); });
    m_bus.registerObject(objectPath(), this, QDBusConnection::ExportAllSlots);
}

PreviewsService::~PreviewsService()
{
    m_bus.unregisterObject(objectPath());
    m_requests.setEnded({});
}

void PreviewsService::ShowForApplication(const QString& id, const BusRectangle& place,
                                         const QString& edge)
{
    answer(m_requests.showForApplication(id, requested(place, edge)));
}

void PreviewsService::ShowForWindows(const QList<uint>& windows, const BusRectangle& place,
                                     const QString& edge)
{
    answer(m_requests.showForWindows({windows.begin(), windows.end()}, requested(place, edge)));
}

void PreviewsService::Hide()
{
    // A late call must not remove another caller's row. But if the row's caller has gone, any
    // caller may.
    if (m_caller.isEmpty() || m_caller == message().service())
        m_requests.hide();
}

void PreviewsService::answer(const std::optional<RequestError>& error)
{
    qCDebug(log::session, "%s asked for previews: %s", qUtf8Printable(message().service()),
            error ? qUtf8Printable(error->message) : "they show");
    if (!error)
        follow(message().service());
    else if (message().isReplyRequired())
        sendErrorReply(nameOf(error->kind), error->message);
}

void PreviewsService::follow(const QString& caller)
{
    m_caller = caller;
    m_watcher.setWatchedServices({caller});
    // A caller that did not wait for the answer may have gone before it was watched.
    QDBusMessage question =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"NameHasOwner"_s);
    question << caller;
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, caller] {
        const QDBusPendingReply<bool> reply = *watcher;
        watcher->deleteLater();
        if (reply.isValid() && !reply.value())
            callerEnded(caller);
    });
}

void PreviewsService::callerEnded(const QString& caller)
{
    if (caller.isEmpty() || caller != m_caller)
        return;
    m_caller.clear();
    m_watcher.setWatchedServices({});
    m_requests.abandon();
}

void PreviewsService::rowEnded()
{
    m_watcher.setWatchedServices({});
    // Sent only to the caller of that row: another caller, whose row has replaced it, would take it
    // for the end of its own row.
    if (const QString caller = std::exchange(m_caller, QString()); !caller.isEmpty())
        m_bus.send(
            QDBusMessage::createTargetedSignal(caller, objectPath(), interfaceName(), u"Hidden"_s));
}

} // namespace lumbrix::platform
