// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/platform/media/TestPlayer.h"
#include "platform/StringLiterals.h"

#include <QtDBus/QDBusMessage>

namespace lumbrix::test
{
namespace
{

QString path() { return u"/org/mpris/MediaPlayer2"_s; }
QString playerInterface() { return u"org.mpris.MediaPlayer2.Player"_s; }

} // namespace

TestPlayer::TestPlayer(const QString& address, const QString& name, const QVariantMap& properties)
    : BusObject(QDBusConnection::connectToBus(address, u"player "_s + name), path(),
                {u"org.mpris.MediaPlayer2."_s + name}),
      m_properties(properties), m_identity(m_bus.name())
{
}

void TestPlayer::tellChange(const QVariantList& arguments)
{
    tell(path(), u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s, arguments);
}

void TestPlayer::set(const QVariantMap& properties, bool tell)
{
    m_properties.insert(properties);
    if (tell)
        tellChange({playerInterface(), properties, QStringList()});
}

void TestPlayer::tellNonsense()
{
    for (const QVariantList& arguments :
         {QVariantList{}, QVariantList{playerInterface()},
          QVariantList{playerInterface(), 7, u"x"_s},
          QVariantList{
              playerInterface(),
              QVariantMap{{u"Metadata"_s, QStringList{path()}}, {u"PlaybackStatus"_s, path()}},
              QStringList()}})
        tellChange(arguments);
}

bool TestPlayer::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    const bool isQuestion = message.member() == u"GetAll";
    if (isQuestion)
        m_questions += message.arguments().value(0) == playerInterface() ? 1 : 0;
    else
        m_commands += message.member();
    switch (manners) {
    case Manners::Hangs:
        message.setDelayedReply(true);
        return true;
    case Manners::Refuses:
        return connection.send(message.createErrorReply(QDBusError::Failed, u"no"_s));
    case Manners::Nonsense:
        return connection.send(message.createReply({7, u"nonsense"_s}));
    case Manners::Dies:
        if (!isQuestion) {
            message.setDelayedReply(true);
            // Not from in here: the toolkit holds a lock of the connection while it asks us.
            QMetaObject::invokeMethod(
                this, [this] { leave(); }, Qt::QueuedConnection);
            return true;
        }
        break;
    case Manners::Good:
        break;
    }
    if (!isQuestion)
        return connection.send(message.createReply());
    QVariantMap reply = m_properties;
    if (message.arguments().value(0) != playerInterface()) {
        reply = {{u"Identity"_s, m_identity}};
        if (!m_desktopEntry.isEmpty())
            reply.insert(u"DesktopEntry"_s, m_desktopEntry);
    }
    return connection.send(message.createReply(reply));
}

QVariantMap track(const QVariant& artist, const QVariant& title, const QVariant& artUrl)
{
    QVariantMap metadata;
    for (const auto& [name, value] :
         {std::pair(u"xesam:artist"_s, artist), std::pair(u"xesam:title"_s, title),
          std::pair(u"mpris:artUrl"_s, artUrl)})
        if (value.isValid())
            metadata.insert(name, value);
    return {{u"Metadata"_s, metadata}};
}

} // namespace lumbrix::test
