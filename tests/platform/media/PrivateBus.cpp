// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/platform/media/PrivateBus.h"
#include "platform/StringLiterals.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QFile>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QTimer>
#include <QtDBus/QDBusMessage>

namespace lumbrix::test
{

PrivateBus::PrivateBus()
{
    const QString configuration = m_folder.filePath(u"bus.conf"_s);
    m_address = u"unix:path="_s + m_folder.filePath(u"bus"_s);
    QFile file(configuration);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("no folder for the message bus");
    file.write("<busconfig><type>session</type><listen>" + m_address.toUtf8() +
               "</listen><auth>EXTERNAL</auth><policy context=\"default\">"
               "<allow send_destination=\"*\"/><allow eavesdrop=\"true\"/>"
               "<allow own=\"*\"/></policy></busconfig>");
    file.close();
    m_daemon = privatedesk::Process::start(
        {.program = u"dbus-daemon"_s,
         .arguments = {u"--config-file="_s + configuration, u"--nofork"_s, u"--nopidfile"_s,
                       u"--print-address"_s},
         .environment = QProcessEnvironment::systemEnvironment().toStringList(),
         .log = m_folder.filePath(u"bus.log"_s),
         .pipes = true,
         .passFd = {}});
    // It says its address once it listens.
    if (!m_daemon->readLine(std::chrono::seconds(20)))
        qFatal("the message bus did not start");
}

QDBusConnection PrivateBus::connect(const QString& name) const
{
    return QDBusConnection::connectToBus(m_address, m_address + u' ' + name);
}

BusObject::BusObject(const QDBusConnection& bus, const QString& path, const QStringList& names)
    : m_bus(bus), m_path(path)
{
    m_bus.registerVirtualObject(path, this, QDBusConnection::SubPath);
    for (const QString& name : names)
        if (!m_bus.registerService(name))
            qFatal("a test program could not join the bus");
}

BusObject::~BusObject()
{
    // Else the bus's own thread would let go of this, some time later.
    m_bus.unregisterObject(m_path);
    disconnect();
    const QString name = m_bus.name();
    m_bus = QDBusConnection(QString()); // it lasts as long as somebody holds it
    QDBusConnection::disconnectFromBus(name);
}

bool BusObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QVariantList reply = answer(message);
    switch (manners) {
    case Manners::Hangs:
        message.setDelayedReply(true);
        return true;
    case Manners::Nonsense:
        return connection.send(message.createReply({7, u"nonsense"_s}));
    case Manners::Refuses:
        return connection.send(message.createErrorReply(QDBusError::NoReply, QString()));
    default:
        return connection.send(message.createReply(reply));
    }
}

void BusObject::tell(const QString& path, const QString& interface, const QString& name,
                     const QVariantList& arguments)
{
    QDBusMessage signal = QDBusMessage::createSignal(path, interface, name);
    signal.setArguments(arguments);
    m_bus.send(signal);
}

bool waitUntil(const std::function<bool()>& condition)
{
    QTimer wake; // for what happens without an event
    wake.start(5);
    const QDeadlineTimer deadline(15000);
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

} // namespace lumbrix::test
