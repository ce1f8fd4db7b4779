// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/session/SingleInstance.h"

#include <QtCore/QRegularExpression>
#include <QtDBus/QDBusError>

#include <optional>
#include <utility>

#include "platform/StringLiterals.h"
#include "platform/linux/applications/ProcessNames.h"

namespace lumbrix::platform
{
namespace
{

/// The bus answers quickly; the first instance may still be starting.
constexpr int busTimeout = 2000;
constexpr Seconds handOverTimeout = 5.0;

const QString& commonName()
{
    static const QString name = u"org.lumbrix.Lumbrix"_s;
    return name;
}
const QString& objectPath()
{
    static const QString path = u"/org/lumbrix/Lumbrix"_s;
    return path;
}

/// As the desktop entry calls it.
const QString& toggleAction()
{
    static const QString name = u"toggle-previews"_s;
    return name;
}

/// All screens of a display are one desktop.
QString nameFor(QString display)
{
    static const QRegularExpression screen(u"\\.[0-9]+$"_s);
    static const QRegularExpression unfit(u"[^A-Za-z0-9_]"_s);
    display.remove(screen).replace(unfit, u"_"_s);
    return commonName() + u".display"_s + display;
}

QDBusMessage busCall(const QString& method, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, method);
    message.setArguments(arguments);
    return message;
}

enum class Name { Ours, Taken, Unknown };

Name requestName(const QDBusConnection& bus, const QString& name)
{
    constexpr uint doNotQueue = 4;
    constexpr uint primaryOwner = 1;
    constexpr uint exists = 3;
    const QDBusMessage reply =
        bus.call(busCall(u"RequestName"_s, {name, doNotQueue}), QDBus::Block, busTimeout);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
        return Name::Unknown;
    switch (reply.arguments().constFirst().toUInt()) {
    case primaryOwner:
        return Name::Ours;
    case exists:
        return Name::Taken;
    default:
        return Name::Unknown;
    }
}

/// 0 if nobody owns the name, null if that is not known.
std::optional<std::int32_t> processOf(const QDBusConnection& bus, const QString& name)
{
    const QDBusMessage reply =
        bus.call(busCall(u"GetConnectionUnixProcessID"_s, {name}), QDBus::Block, busTimeout);
    if (reply.type() == QDBusMessage::ReplyMessage && !reply.arguments().isEmpty())
        return static_cast<std::int32_t>(reply.arguments().constFirst().toUInt());
    if (reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner"))
        return 0;
    return std::nullopt;
}

} // namespace

SingleInstance::SingleInstance(const RunLoop& runLoop, const QDBusConnection& bus,
                               const QString& display)
    : m_runLoop(runLoop), m_bus(bus), m_name(nameFor(display))
{
}

std::unique_ptr<SingleInstance> SingleInstance::create(const RunLoop& runLoop)
{
    return std::make_unique<SingleInstance>(runLoop, QDBusConnection::sessionBus(),
                                            qEnvironmentVariable("DISPLAY"));
}

std::optional<std::int32_t> SingleInstance::runningProcess()
{
    return processOf(QDBusConnection::sessionBus(), nameFor(qEnvironmentVariable("DISPLAY")));
}

QString SingleInstance::otherOne() const
{
    const std::int32_t pid = processOf(m_bus, m_name).value_or(0);
    return pid == 0 ? u"another process"_s
                    : u"process %1 (%2)"_s.arg(pid).arg(readProcessNames(pid).executablePath);
}

SingleInstance::~SingleInstance() { release(); }

void SingleInstance::release()
{
    for (const QString& name : {commonName(), m_name})
        m_bus.send(busCall(u"ReleaseName"_s, {name}));
    m_bus.unregisterObject(objectPath());
}

SingleInstance::Result SingleInstance::start(StartRequest request)
{
    if (!m_bus.isConnected())
        return Result::First;
    // Before we own the name: a program that sees the name may call at once.
    m_bus.registerObject(objectPath(), this, QDBusConnection::ExportAllSlots);
    const Seconds deadline = m_runLoop.now() + handOverTimeout;
    for (;;) {
        if (requestName(m_bus, m_name) != Name::Taken) {
            requestName(m_bus, commonName()); // whoever is first gets it; this is not important
            return Result::First;
        }
        const auto left = static_cast<int>((deadline - m_runLoop.now()) * 1000);
        if (left < 1)
            return Result::NoAnswer;
        const QDBusMessage answer = handOver(request, left);
        if (answer.type() == QDBusMessage::ReplyMessage)
            return Result::HandedOver;
        // If the other instance has ended in the meantime, we become the first; otherwise it stays.
        const auto error = QDBusError(answer).type();
        if (error != QDBusError::ServiceUnknown && error != QDBusError::NoReply)
            return Result::NoAnswer;
    }
}

QDBusMessage SingleInstance::handOver(StartRequest request, int timeout)
{
    const bool isToggle = request == StartRequest::TogglePreviews;
    QDBusMessage message =
        QDBusMessage::createMethodCall(m_name, objectPath(), u"org.freedesktop.Application"_s,
                                       isToggle ? u"ActivateAction"_s : u"Activate"_s);
    message.setAutoStartService(false);
    if (isToggle)
        message << toggleAction() << QVariantList();
    message << QVariantMap();
    return m_bus.call(message, QDBus::Block, timeout);
}

void SingleInstance::setHandler(std::function<void(StartRequest)> handler)
{
    m_handler = std::move(handler);
    if (!m_handler)
        return;
    for (const StartRequest request : std::exchange(m_waiting, {}))
        m_handler(request);
}

void SingleInstance::handle(StartRequest request)
{
    if (m_handler)
        m_handler(request);
    else
        m_waiting.push_back(request);
}

void SingleInstance::Activate(const QVariantMap&) { handle(StartRequest::Open); }

void SingleInstance::Open(const QStringList&, const QVariantMap& platformData)
{
    Activate(platformData);
}

void SingleInstance::ActivateAction(const QString& name, const QVariantList&, const QVariantMap&)
{
    handle(name == toggleAction() ? StartRequest::TogglePreviews : StartRequest::Open);
}

} // namespace lumbrix::platform
