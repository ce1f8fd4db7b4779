// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankItems.h"
#include "platform/StringLiterals.h"

#include <QtCore/QStringList>
#include <QtDBus/QDBusPendingCallWatcher>

#include <memory>
#include <utility>

namespace lumbrix::platform
{

bool isPlankAnswer(const QDBusMessage& reply, const char* signature)
{
    return reply.type() == QDBusMessage::ReplyMessage &&
           reply.signature() == QLatin1String(signature);
}

PlankItemsQuery::PlankItemsQuery(RunLoop& runLoop, const QDBusConnection& bus, QString owner,
                                 QString path, std::function<void()> changed)
    : m_runLoop(runLoop), m_bus(bus), m_owner(std::move(owner)), m_path(std::move(path)),
      m_onChanged(std::move(changed))
{
}

PlankItemsQuery::~PlankItemsQuery() { m_runLoop.cancelPreviousPerformRequests(this); }

void PlankItemsQuery::call(const QString& method, const QVariantList& arguments,
                           std::function<void(const QDBusMessage&)> answer)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(m_owner, m_path, u"net.launchpad.plank.Items"_s, method);
    message.setArguments(arguments);
    auto* watcher =
        new QDBusPendingCallWatcher(m_bus.asyncCall(message, plankTimeoutMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [answer = std::move(answer)](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                answer(finished->reply());
            });
}

void PlankItemsQuery::refreshWhileTheyMove()
{
    refresh();
    m_runLoop.cancelPreviousPerformRequests(this);
    refreshAfter(0.3);
    refreshAfter(0.8);
}

void PlankItemsQuery::refreshAfter(Seconds delay)
{
    m_runLoop.performAfterDelay(this, delay, [this] { refresh(); });
}

void PlankItemsQuery::refresh()
{
    if (m_isQuerying) {
        m_isStale = true;
        return;
    }
    m_isQuerying = true;
    m_isStale = false;
    query();
}

void PlankItemsQuery::query()
{
    call(u"GetCount"_s, {}, [this](const QDBusMessage& reply) {
        const int count = isPlankAnswer(reply, "i") ? reply.arguments().constFirst().toInt() : 0;
        m_count = plankItemCount(count);
    });
    call(u"GetPersistentApplications"_s, {}, [this](const QDBusMessage& kept) {
        if (!isPlankAnswer(kept, "as")) {
            queryFailed();
            return;
        }
        const QStringList uris = kept.arguments().constFirst().toStringList();
        call(u"GetTransientApplications"_s, {}, [this, uris](const QDBusMessage& running) {
            if (!isPlankAnswer(running, "as")) {
                queryFailed();
                return;
            }
            queryPositions(plankItemsToAsk(uris, running.arguments().constFirst().toStringList()));
        });
    });
}

void PlankItemsQuery::queryPositions(const QStringList& uris)
{
    struct Collected {
        PlankItems items;
        qsizetype missing = 0;
        bool isFailed = false;
    };
    const auto collected = std::make_shared<Collected>();
    collected->missing = uris.size();
    for (const QString& uri : uris) {
        call(u"GetHoverPosition"_s, {uri}, [this, uri, collected](const QDBusMessage& reply) {
            const QVariantList values = reply.arguments();
            if (!isPlankAnswer(reply, "iiib")) {
                collected->isFailed = true;
            } else if (values[3].toBool()) {
                collected->items.add(uri, values[0].toInt(), values[1].toInt(), values[2].toInt());
            }
            if (--collected->missing > 0)
                return;
            if (collected->isFailed)
                queryFailed();
            else
                finishQuery(std::move(collected->items));
        });
    }
}

void PlankItemsQuery::finishQuery(PlankItems items)
{
    m_isQuerying = false;
    m_failures = 0;
    m_items = std::move(items);
    m_items.count = m_count;
    m_onChanged();
    if (m_isStale)
        refresh();
}

void PlankItemsQuery::queryFailed()
{
    m_isQuerying = false;
    if (++m_failures <= maximumPlankFailures)
        refreshAfter(0.5);
}

} // namespace lumbrix::platform
