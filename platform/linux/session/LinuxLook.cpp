// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/session/LinuxLook.h"

#include <QtCore/QRegularExpression>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusServiceWatcher>
#include <QtDBus/QDBusVariant>

#include "platform/StringLiterals.h"
#include "platform/linux/PlainFile.h"

namespace lumbrix::platform
{
namespace
{

constexpr int timeoutMilliseconds = 5000;

const QString portal = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString portalSettings = u"org.freedesktop.portal.Settings"_s;
const QString appearance = u"org.freedesktop.appearance"_s;
const QString scheme = u"color-scheme"_s;

/// The theme in the settings file of a toolkit that others follow; null without one.
QString themeIn(const QByteArray& file)
{
    for (const QByteArray& line : file.split('\n')) {
        const QByteArray value = line.mid(line.indexOf('=') + 1).trimmed();
        if (line.startsWith("gtk-application-prefer-dark-theme") &&
            (value == "1" || value == "true"))
            return u"dark"_s;
    }
    for (const QByteArray& line : file.split('\n'))
        if (line.startsWith("gtk-theme-name"))
            return QString::fromUtf8(line.mid(line.indexOf('=') + 1).trimmed());
    return {};
}

} // namespace

// One that is "Darker" has dark title bars, and is light.
bool isDarkTheme(const QString& name)
{
    static const QRegularExpression word(u"(^|[^a-z])dark([^a-z]|$)"_s,
                                         QRegularExpression::CaseInsensitiveOption);
    return name.contains(word);
}

LinuxLook::LinuxLook(RunLoop& runLoop, x11::ThemeWatch* theme, const QDBusConnection& bus,
                     const QString& folder)
    : m_theme(theme), m_bus(bus),
      m_writtenTheme(themeIn(readPlainFile(folder + u"/gtk-3.0/settings.ini"_s, 1 << 20)))
{
    if (m_theme)
        m_theme->setChanged([&runLoop, changed = m_guard.ifAlive([this] { tell(); })] {
            runLoop.performOnMainThread(changed, false);
        });
    if (!m_bus.isConnected())
        return;
    auto* watcher =
        new QDBusServiceWatcher(portal, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this, &LinuxLook::askPortal);
    m_bus.connect(portal, portalPath, portalSettings, u"SettingChanged"_s, this,
                  SLOT(settingChanged(QDBusMessage)));
    askPortal();
}

LinuxLook::~LinuxLook()
{
    if (m_theme)
        m_theme->setChanged({});
}

std::optional<bool> LinuxLook::isDark()
{
    if (m_isDarkByPortal)
        return m_isDarkByPortal;
    const QString told = m_theme ? m_theme->themeName() : QString();
    const QString& name = told.isEmpty() ? m_writtenTheme : told;
    return name.isEmpty() ? std::nullopt : std::optional(isDarkTheme(name));
}

void LinuxLook::askPortal()
{
    QDBusMessage question =
        QDBusMessage::createMethodCall(portal, portalPath, portalSettings, u"Read"_s);
    question << appearance << scheme;
    question.setAutoStartService(false);
    auto* answer =
        new QDBusPendingCallWatcher(m_bus.asyncCall(question, timeoutMilliseconds), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* it) {
        it->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *it;
        setScheme(reply.isValid() ? reply.value().variant() : QVariant());
    });
}

void LinuxLook::settingChanged(const QDBusMessage& signal)
{
    const QVariantList told = signal.arguments();
    if (told.value(0) == appearance && told.value(1) == scheme)
        setScheme(told.value(2));
}

void LinuxLook::setScheme(const QVariant& told)
{
    // Most portals wrap what they are asked for once more than they say.
    QVariant value = told;
    for (int layer = 0; layer < 2 && value.metaType() == QMetaType::fromType<QDBusVariant>();
         ++layer)
        value = value.value<QDBusVariant>().variant();
    const uint number = value.toUInt(); // 0 = no preference
    m_isDarkByPortal = number == 1 || number == 2 ? std::optional(number == 1) : std::nullopt;
    tell();
}

void LinuxLook::tell()
{
    if (m_changed)
        m_changed();
}

} // namespace lumbrix::platform
