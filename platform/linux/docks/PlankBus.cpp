// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankBus.h"

#include <QtCore/QRegularExpression>
#include <QtCore/QSet>
#include <QtCore/QUrl>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusServiceWatcher>

namespace lumbrix::platform
{

namespace
{

const QString& service()
{
    static const QString name = QStringLiteral("net.launchpad.plank");
    return name;
}

const QString& itemsInterface()
{
    static const QString name = QStringLiteral("net.launchpad.plank.Items");
    return name;
}

constexpr int TimeoutMilliseconds = 2000;
constexpr int MaximalFailures = 10;

// As Plank numbers them.
DockEdge edgeOf(int position)
{
    switch (position) {
    case 0:
        return DockEdge::Left;
    case 1:
        return DockEdge::Right;
    case 2:
        return DockEdge::Top;
    default:
        return DockEdge::Bottom;
    }
}

bool isAnswer(const QDBusMessage& reply, const char* signature)
{
    return reply.type() == QDBusMessage::ReplyMessage &&
           reply.signature() == QLatin1String(signature);
}

} // namespace

PlankBus::PlankBus(RunLoop& runLoop, const QDBusConnection& bus) : m_runLoop(runLoop), m_bus(bus) {}

PlankBus::~PlankBus() { m_runLoop.cancelPreviousPerformRequests(this); }

void PlankBus::start()
{
    if (!m_bus.isConnected()) {
        return;
    }
    auto* watcher =
        new QDBusServiceWatcher(service(), m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) { ownerChanged(owner); });
    m_bus.connect(service(), QString(), itemsInterface(), QStringLiteral("Changed"), this,
                  SLOT(itemsChanged()));
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
        QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetNameOwner"));
    message << service();
    call(message, [this](const QDBusMessage& reply) {
        if (isAnswer(reply, "s") && m_owner.isEmpty()) {
            ownerChanged(reply.arguments().constFirst().toString());
        }
    });
}

// The answer comes only while the owner that was asked is still the same.
void PlankBus::call(const QDBusMessage& message, Answer answer)
{
    auto* watcher =
        new QDBusPendingCallWatcher(m_bus.asyncCall(message, TimeoutMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, generation = m_generation,
             answer = std::move(answer)](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                if (generation == m_generation) {
                    answer(finished->reply());
                }
            });
}

void PlankBus::ownerChanged(const QString& owner)
{
    ++m_generation;
    m_owner = owner;
    m_dockName.clear();
    m_items = {};
    m_isQuerying = false;
    m_isStale = false;
    m_failures = 0;
    m_runLoop.cancelPreviousPerformRequests(this);
    if (m_onChanged) {
        m_onChanged();
    }
    if (!owner.isEmpty()) {
        findDock();
    }
}

// Plank has its name on the bus before it has its docks there.
void PlankBus::findDock()
{
    const QDBusMessage message = QDBusMessage::createMethodCall(
        m_owner, QStringLiteral("/net/launchpad/plank"),
        QStringLiteral("org.freedesktop.DBus.Introspectable"), QStringLiteral("Introspect"));
    call(message, [this](const QDBusMessage& reply) {
        static const QRegularExpression node(QStringLiteral("<node name=[\"']([A-Za-z0-9_]+)"));
        const QString text =
            isAnswer(reply, "s") ? reply.arguments().constFirst().toString() : QString();
        const QRegularExpressionMatch match = node.match(text);
        if (!match.hasMatch()) {
            queryFailed();
            return;
        }
        m_failures = 0;
        m_dockName = match.captured(1);
        refresh();
        refreshAfter(1.0); // items move into place while the dock starts
    });
}

QDBusMessage PlankBus::itemsCall(const QString& method) const
{
    return QDBusMessage::createMethodCall(
        m_owner, QStringLiteral("/net/launchpad/plank/") + m_dockName, itemsInterface(), method);
}

void PlankBus::itemsChanged()
{
    refresh();
    // Items slide to their new places after the signal.
    m_runLoop.cancelPreviousPerformRequests(this);
    refreshAfter(0.3);
    refreshAfter(0.8);
}

void PlankBus::refreshAfter(Seconds delay)
{
    m_runLoop.performAfterDelay(this, delay, [this] { refresh(); });
}

void PlankBus::refresh()
{
    if (m_owner.isEmpty()) {
        return;
    }
    if (m_dockName.isEmpty()) {
        return; // refreshed once the dock has been found
    }
    if (m_isQuerying) {
        m_isStale = true;
        return;
    }
    m_isQuerying = true;
    m_isStale = false;
    query();
}

void PlankBus::query()
{
    call(itemsCall(QStringLiteral("GetCount")), [this](const QDBusMessage& reply) {
        m_count = isAnswer(reply, "i") ? reply.arguments().constFirst().toInt() : 0;
    });
    call(itemsCall(QStringLiteral("GetPersistentApplications")), [this](const QDBusMessage& kept) {
        if (!isAnswer(kept, "as")) {
            queryFailed();
            return;
        }
        const QStringList uris = kept.arguments().constFirst().toStringList();
        call(itemsCall(QStringLiteral("GetTransientApplications")),
             [this, uris](const QDBusMessage& running) {
                 if (!isAnswer(running, "as")) {
                     queryFailed();
                     return;
                 }
                 QStringList all = uris + running.arguments().constFirst().toStringList();
                 all.append(QString()); // answered with the first item that has no entry
                 all.removeDuplicates();
                 queryPositions(all);
             });
    });
}

void PlankBus::queryPositions(const QStringList& uris)
{
    struct Collected {
        PlankItems items;
        qsizetype missing = 0;
        bool isFailed = false;
    };
    const auto collected = std::make_shared<Collected>();
    collected->missing = uris.size();
    for (const QString& uri : uris) {
        QDBusMessage message = itemsCall(QStringLiteral("GetHoverPosition"));
        message << uri;
        call(message, [this, uri, collected](const QDBusMessage& reply) {
            const QVariantList values = reply.arguments();
            if (!isAnswer(reply, "iiib")) {
                collected->isFailed = true;
            } else if (values[3].toBool()) {
                const QPoint point(values[0].toInt(), values[1].toInt());
                const QUrl url(uri);
                if (uri.isEmpty()) {
                    collected->items.firstUnnamed = point;
                } else {
                    collected->items.named.push_back(
                        {url.isLocalFile() ? url.toLocalFile() : uri, point});
                }
                m_edge = edgeOf(values[2].toInt());
            }
            if (--collected->missing > 0) {
                return;
            }
            if (collected->isFailed) {
                queryFailed();
            } else {
                finishQuery(std::move(collected->items));
            }
        });
    }
}

void PlankBus::finishQuery(PlankItems items)
{
    m_isQuerying = false;
    m_failures = 0;
    m_items = std::move(items);
    m_items.count = m_count;
    if (m_onChanged) {
        m_onChanged();
    }
    if (m_isStale) {
        refresh();
    }
}

void PlankBus::queryFailed()
{
    m_isQuerying = false;
    if (++m_failures > MaximalFailures) {
        return; // the next signal or hover tries again
    }
    m_runLoop.performAfterDelay(this, 0.5, [this] {
        if (m_dockName.isEmpty()) {
            findDock();
        } else {
            refresh();
        }
    });
}

} // namespace lumbrix::platform
