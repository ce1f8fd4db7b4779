// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/platform/linux/TestPlank.h"
#include "platform/StringLiterals.h"

#include <QtCore/QStringList>
#include <QtDBus/QDBusMessage>

#include <utility>

namespace lumbrix::test
{

namespace
{
QString path() { return u"/net/launchpad/plank"_s; }
} // namespace

TestPlank::TestPlank(const QDBusConnection& bus, const QString& name,
                     std::map<QString, Dock> itsDocks)
    : BusObject(bus, path(), {name}), docks(std::move(itsDocks))
{
}

void TestPlank::tell(const QString& dock)
{
    BusObject::tell(path() + u'/' + dock, u"net.launchpad.plank.Items"_s, u"Changed"_s);
}

QVariantList TestPlank::answer(const QDBusMessage& message)
{
    if (message.member() == u"Introspect") {
        QString nodes;
        for (const auto& [name, dock] : docks)
            nodes += u"<node name=\"%1\"/>"_s.arg(name);
        return {u"<node>%1</node>"_s.arg(nodes)};
    }
    const auto it = docks.find(message.path().section(u'/', -1));
    const Dock dock = it == docks.end() ? Dock() : it->second;
    if (message.member() == u"GetHoverPosition") {
        const auto item = dock.items.find(message.arguments().value(0).toString());
        const bool isFound = item != dock.items.end();
        const QPoint point = isFound ? item->second : QPoint();
        return {point.x(), point.y(), dock.position, isFound};
    }
    if (message.member() == u"GetCount")
        return {static_cast<int>(dock.items.size())};
    QStringList uris;
    for (const auto& [uri, point] : dock.items)
        if (message.member() == u"GetPersistentApplications" && !uri.isEmpty())
            uris += uri;
    return {uris};
}

} // namespace lumbrix::test
