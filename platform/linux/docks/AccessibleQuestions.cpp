// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/AccessibleQuestions.h"
#include "platform/StringLiterals.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusObjectPath>
#include <QtDBus/QDBusVariant>

namespace lumbrix::platform
{

namespace
{

constexpr int maximumName = 4096; ///< characters, as of windows' titles
constexpr int maximumCoordinate = 1 << 17;

const QString& accessible()
{
    static const QString name = u"org.a11y.atspi.Accessible"_s;
    return name;
}

} // namespace

AccessibleRef accessibleRoot(const QString& application)
{
    return {application, u"/org/a11y/atspi/accessible/root"_s};
}

QDBusMessage childrenQuestion(const AccessibleRef& element)
{
    return QDBusMessage::createMethodCall(element.bus, element.path, accessible(),
                                          u"GetChildren"_s);
}

std::vector<AccessibleRef> accessibleRefs(const QDBusMessage& reply, std::size_t maximum)
{
    std::vector<AccessibleRef> result;
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != u"a(so)")
        return result;
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
    list.endArray(); // also before the end: otherwise the message would stay in memory
    return result;
}

QDBusMessage roleQuestion(const AccessibleRef& element)
{
    return QDBusMessage::createMethodCall(element.bus, element.path, accessible(), u"GetRole"_s);
}

std::optional<std::uint32_t> roleIn(const QDBusMessage& reply)
{
    return reply.signature() == u"u" ? std::optional(reply.arguments().constFirst().toUInt())
                                     : std::nullopt;
}

QDBusMessage nameQuestion(const AccessibleRef& element)
{
    return QDBusMessage::createMethodCall(element.bus, element.path,
                                          u"org.freedesktop.DBus.Properties"_s, u"Get"_s)
           << accessible() << u"Name"_s;
}

std::optional<QString> nameIn(const QDBusMessage& reply)
{
    if (reply.signature() != u"v")
        return std::nullopt;
    const auto name = reply.arguments().constFirst().value<QDBusVariant>().variant();
    return name.toString().left(maximumName);
}

QDBusMessage extentsQuestion(const AccessibleRef& element)
{
    constexpr quint32 onTheScreen = 0;
    return QDBusMessage::createMethodCall(element.bus, element.path, u"org.a11y.atspi.Component"_s,
                                          u"GetExtents"_s)
           << onTheScreen;
}

// What is not shown has a place far off.
std::optional<QRect> extentsIn(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != u"(iiii)")
        return std::nullopt;
    const auto argument = reply.arguments().constFirst().value<QDBusArgument>();
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    argument.beginStructure();
    argument >> x >> y >> width >> height;
    argument.endStructure();
    const auto isSane = [](int value) {
        return value > -maximumCoordinate && value < maximumCoordinate;
    };
    if (!isSane(x) || !isSane(y) || !isSane(width) || !isSane(height) || width < 1 || height < 1)
        return std::nullopt;
    return QRect(x, y, width, height);
}

} // namespace lumbrix::platform
