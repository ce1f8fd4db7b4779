// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/AccessibleQuestions.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVariant>

namespace lumbrix::platform
{

namespace
{

constexpr int MaximalName = 4096; ///< characters, as of windows' titles

const QString& accessible()
{
    static const QString name = QStringLiteral("org.a11y.atspi.Accessible");
    return name;
}

} // namespace

AccessibleRef accessibleRoot(const QString& application)
{
    return {application, QStringLiteral("/org/a11y/atspi/accessible/root")};
}

QDBusMessage childrenQuestion(const AccessibleRef& element)
{
    return QDBusMessage::createMethodCall(element.bus, element.path, accessible(),
                                          QStringLiteral("GetChildren"));
}

std::vector<AccessibleRef> accessibleRefs(const QDBusMessage& reply, std::size_t maximum)
{
    std::vector<AccessibleRef> result;
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != u"a(so)") {
        return result;
    }
    const auto list = reply.arguments().constFirst().value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd() && result.size() < maximum) {
        QString bus;
        QDBusObjectPath path;
        list.beginStructure();
        list >> bus >> path;
        list.endStructure();
        result.push_back({bus, path.path()});
    }
    list.endArray(); // also before its end: else the message would stay in memory
    return result;
}

QDBusMessage roleQuestion(const AccessibleRef& element)
{
    return QDBusMessage::createMethodCall(element.bus, element.path, accessible(),
                                          QStringLiteral("GetRole"));
}

std::optional<std::uint32_t> roleIn(const QDBusMessage& reply)
{
    return reply.signature() == u"u" ? std::optional(reply.arguments().constFirst().toUInt())
                                     : std::nullopt;
}

QDBusMessage nameQuestion(const AccessibleRef& element)
{
    return QDBusMessage::createMethodCall(element.bus, element.path,
                                          QStringLiteral("org.freedesktop.DBus.Properties"),
                                          QStringLiteral("Get"))
           << accessible() << QStringLiteral("Name");
}

std::optional<QString> nameIn(const QDBusMessage& reply)
{
    if (reply.signature() != u"v") {
        return std::nullopt;
    }
    const auto name = reply.arguments().constFirst().value<QDBusVariant>().variant();
    return name.toString().left(MaximalName);
}

} // namespace lumbrix::platform
