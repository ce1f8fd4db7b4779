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

QVariantList TestPlayer::answer(const QDBusMessage& question)
{
    if (question.member() != u"GetAll") {
        m_commands += question.member();
        return {};
    }
    if (question.arguments().value(0) == playerInterface()) {
        ++m_questions;
        return {m_properties};
    }
    QVariantMap reply{{u"Identity"_s, m_identity}};
    if (!m_desktopEntry.isEmpty())
        reply.insert(u"DesktopEntry"_s, m_desktopEntry);
    return {reply};
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
