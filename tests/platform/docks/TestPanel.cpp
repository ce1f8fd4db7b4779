// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/platform/docks/TestPanel.h"
#include "platform/StringLiterals.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>

namespace lumbrix::test
{

/// As references go over the bus.
struct TestRef {
    QString bus;
    QDBusObjectPath path;
};

QDBusArgument& operator<<(QDBusArgument& argument, const TestRef& ref)
{
    argument.beginStructure();
    argument << ref.bus << ref.path;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, TestRef& ref)
{
    argument.beginStructure();
    argument >> ref.bus >> ref.path;
    argument.endStructure();
    return argument;
}

namespace
{

const QString& folder()
{
    static const QString path = u"/org/a11y/atspi/accessible/"_s;
    return path;
}

QVariant references(const QString& bus, const QStringList& names)
{
    QList<TestRef> result;
    for (const QString& name : names)
        result.append({bus, QDBusObjectPath(folder() + name)});
    return QVariant::fromValue(result);
}

} // namespace

TestPanel::TestPanel(const PrivateBus& bus)
    : BusObject(bus.connect(u"panel"_s), u"/org/a11y"_s, {}), busAddress(bus.address()),
      m_registry(bus.connect(u"registry"_s), {u"org.a11y.Bus"_s, u"org.a11y.atspi.Registry"_s},
                 u"/org/a11y"_s,
                 [this](const QDBusMessage& message) { return registryAnswer(message); })
{
    qDBusRegisterMetaType<TestRef>();
    qDBusRegisterMetaType<QList<TestRef>>();
}

void TestPanel::add(const QString& parent, const QString& element, quint32 role,
                    const QRect& extents, const QString& name)
{
    elements[parent].children << element;
    elements[element] = {role, name, extents, {}};
}

void TestPanel::moved(const QString& element)
{
    tell(folder() + element, u"org.a11y.atspi.Event.Object"_s, u"BoundsChanged"_s,
         {QString(), 0, 0, QVariant::fromValue(QDBusVariant(0)), QVariantMap()});
}

QVariant TestPanel::registryAnswer(const QDBusMessage& message)
{
    if (message.member() == u"RegisterEvent")
        registered << message.arguments().value(0).toString();
    else
        ++calls;
    if (message.member() == u"GetAddress")
        return busAddress;
    return references(m_bus.baseService(), {u"root"_s});
}

QVariantList TestPanel::answer(const QDBusMessage& message)
{
    ++calls;
    const QString name = message.path().mid(folder().size());
    const Element element = elements[name];
    if (message.member() == u"GetRole")
        return {element.role};
    if (message.member() == u"GetExtents")
        return {element.extents};
    if (message.member() == u"Get")
        return {QVariant::fromValue(QDBusVariant(element.name))};
    walks += name == u"root";
    QStringList children = element.children;
    for (int i = 0; manners == Manners::Crowded && i < 2000; ++i)
        children << u"%1_%2"_s.arg(name).arg(i);
    return {references(m_bus.baseService(), children)};
}

} // namespace lumbrix::test
