// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankBus.h"
#include "platform/StringLiterals.h"

#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusServiceWatcher>

#include <algorithm>
#include <utility>

namespace lumbrix::platform
{

namespace
{

/// Each of them, and each of its docks, is asked for all its items.
constexpr std::size_t maximumPlanks = 10;

const QString& plainName()
{
    static const QString name = u"net.launchpad.plank"_s;
    return name;
}

const QString& parentPath()
{
    static const QString path = u"/net/launchpad/plank"_s;
    return path;
}

QDBusMessage daemonCall(const QString& method, const QVariantList& arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, method);
    message.setArguments(arguments);
    return message;
}

} // namespace

PlankBus::PlankBus(RunLoop& runLoop, const QDBusConnection& bus) : m_runLoop(runLoop), m_bus(bus) {}

PlankBus::~PlankBus()
{
    for (const auto& [name, plank] : m_planks)
        m_runLoop.cancelPreviousPerformRequests(plank.get());
}

void PlankBus::start()
{
    if (!m_bus.isConnected())
        return;
    auto* watcher = new QDBusServiceWatcher(plainName() + u'*', m_bus,
                                            QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& name, const QString&, const QString& owner) {
                forget(name);
                if (!owner.isEmpty())
                    meet(name, owner);
            });
    m_bus.connect(QString(), QString(), u"net.launchpad.plank.Items"_s, u"Changed"_s, this,
                  SLOT(itemsChanged(QDBusMessage)));
    call(nullptr, daemonCall(u"ListNames"_s), [this](const PlankPtr&, const QDBusMessage& reply) {
        if (!isPlankAnswer(reply, "as"))
            return;
        for (const QString& name : reply.arguments().constFirst().toStringList()) {
            if (name != plainName() && !name.startsWith(plainName() + u'.'))
                continue;
            call(nullptr, daemonCall(u"GetNameOwner"_s, {name}),
                 [this, name](const PlankPtr&, const QDBusMessage& owner) {
                     if (isPlankAnswer(owner, "s") && !m_planks.contains(name))
                         meet(name, owner.arguments().constFirst().toString());
                 });
        }
    });
}

// Answers for a Plank that has ended are dropped; without a Plank the answer is the bus's own.
void PlankBus::call(const PlankPtr& plank, const QDBusMessage& message, Answer answer)
{
    auto* watcher =
        new QDBusPendingCallWatcher(m_bus.asyncCall(message, plankTimeoutMilliseconds), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [weak = std::weak_ptr(plank), isAboutBus = !plank,
             answer = std::move(answer)](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                const PlankPtr about = weak.lock();
                if (isAboutBus || about)
                    answer(about, finished->reply());
            });
}

void PlankBus::meet(const QString& name, const QString& owner)
{
    if (m_planks.size() >= maximumPlanks && name != plainName())
        return;
    const auto plank = std::make_shared<Plank>();
    plank->owner = owner;
    m_planks[name] = plank;
    call(plank, daemonCall(u"GetConnectionUnixProcessID"_s, {owner}),
         [this](const PlankPtr& about, const QDBusMessage& reply) {
             if (isPlankAnswer(reply, "u"))
                 about->pid = reply.arguments().constFirst().toInt();
             findDocks(about);
         });
}

void PlankBus::forget(const QString& name)
{
    const auto it = m_planks.find(name);
    if (it != m_planks.end()) {
        m_runLoop.cancelPreviousPerformRequests(it->second.get());
        m_planks.erase(it);
        notifyChanged();
    }
}

void PlankBus::findDocks(const PlankPtr& plank)
{
    if (std::exchange(plank->isAsked, true))
        return;
    const QDBusMessage message = QDBusMessage::createMethodCall(
        plank->owner, parentPath(), u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s);
    call(plank, message, [this](const PlankPtr& about, const QDBusMessage& reply) {
        about->isAsked = false;
        takeDocks(about, reply);
    });
}

// Plank registers its name on the bus before its docks, and the docks one after another.
void PlankBus::takeDocks(const PlankPtr& plank, const QDBusMessage& reply)
{
    const QSet<QString> names = isPlankAnswer(reply, "s")
                                    ? plankDocksIn(reply.arguments().constFirst().toString())
                                    : QSet<QString>();
    if (names.isEmpty()) {
        if (++plank->failures <= maximumPlankFailures)
            findDocksAfter(plank, 0.5);
        return; // keep the docks of a Plank that hangs
    }
    plank->failures = 0;
    bool isChanged = std::erase_if(plank->docks, [&](const auto& dock) {
                         return !names.contains(dock.first);
                     }) != 0;
    for (const QString& name : names) {
        std::unique_ptr<PlankItemsQuery>& dock = plank->docks[name];
        if (!dock) {
            isChanged = true;
            dock = std::make_unique<PlankItemsQuery>(m_runLoop, m_bus, plank->owner,
                                                     parentPath() + u'/' + name,
                                                     [this] { notifyChanged(); });
            dock->refresh();
        }
    }
    if (isChanged) {
        notifyChanged();
        findDocksAfter(plank, 1.0);
    }
}

void PlankBus::findDocksAfter(const PlankPtr& plank, Seconds delay)
{
    m_runLoop.performAfterDelay(plank.get(), delay, [this, weak = std::weak_ptr(plank)] {
        if (const PlankPtr about = weak.lock()) {
            findDocks(about);
            for (const auto& [name, dock] : about->docks)
                dock->refresh(); // items move into place while the dock starts
        }
    });
}

void PlankBus::lookForDocks()
{
    for (const auto& [name, plank] : m_planks)
        findDocks(plank);
}

void PlankBus::refresh()
{
    for (const auto& [name, plank] : m_planks) {
        if (plank->docks.empty())
            findDocks(plank);
        for (const auto& [dockName, dock] : plank->docks)
            dock->refresh();
    }
}

void PlankBus::itemsChanged(const QDBusMessage& message)
{
    for (const auto& [name, plank] : m_planks) {
        if (plank->owner != message.service())
            continue;
        const auto dock = std::ranges::find_if(plank->docks, [&](const auto& known) {
            return known.second->path() == message.path();
        });
        if (dock != plank->docks.end())
            dock->second->refreshWhileTheyMove();
        else
            findDocks(plank);
    }
}

void PlankBus::notifyChanged() const
{
    if (m_onChanged)
        m_onChanged();
}

std::vector<PlankOnBus> PlankBus::docks() const
{
    std::vector<PlankOnBus> result;
    for (const auto& [plankName, plank] : m_planks)
        for (const auto& [name, dock] : plank->docks)
            result.push_back({plankName, name, plank->pid, dock->items()});
    return result;
}

} // namespace lumbrix::platform
