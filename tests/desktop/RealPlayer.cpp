// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "RealPlayer.h"
#include "platform/StringLiterals.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QStandardPaths>
#include <QtCore/QtEndian>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>

#include <cmath>

namespace lumbrix::privatedesk
{
namespace
{

template <class T> QByteArray littleEndian(T number)
{
    QByteArray bytes(sizeof number, '\0');
    qToLittleEndian(number, bytes.data());
    return bytes;
}

QByteArray chunk(const char* name, const QByteArray& body)
{
    return name + littleEndian(static_cast<quint32>(body.size())) + body +
           QByteArray(body.size() % 2, '\0');
}

} // namespace

void writeSong(const QString& path, const QByteArray& artist, const QByteArray& title, int hertz)
{
    constexpr quint32 rate = 8000;
    QByteArray samples;
    for (quint32 i = 0; i < 60 * rate; ++i)
        samples += static_cast<char>(128 + std::lround(40 * std::sin(6.2832 * hertz * i / rate)));
    const QByteArray format = littleEndian<quint16>(1) + littleEndian<quint16>(1) +
                              littleEndian(rate) + littleEndian(rate) + littleEndian<quint16>(1) +
                              littleEndian<quint16>(8);
    const QByteArray names = "INFO" + chunk("INAM", title + '\0') + chunk("IART", artist + '\0') +
                             chunk("IPRD", "Songs\0"_ba);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(path));
    file.write(chunk("RIFF", "WAVE" + chunk("fmt ", format) + chunk("LIST", names) +
                                 chunk("data", samples)));
}

RealPlayer::RealPlayer(Session& session, const QString& name, const QImage& cover)
    : m_session(session), m_name(name),
      m_bus(QDBusConnection::connectToBus(session.busAddress(), name))
{
    writeSong(m_folder.filePath(u"1.wav"_s), "Ann", "First Song", 440);
    writeSong(m_folder.filePath(u"2.wav"_s), "Bob", "Second Song", 330);
    QImage picture = cover;
    if (picture.isNull()) {
        picture = QImage(400, 400, QImage::Format_RGB32);
        picture.fill(QColor(150, 20, 30));
    }
    picture.save(m_folder.filePath(u"cover.png"_s));
}

RealPlayer::~RealPlayer()
{
    m_process->stop();
    QDBusConnection::disconnectFromBus(m_name);
}

std::unique_ptr<RealPlayer> RealPlayer::audacious(Session& session, const QImage& cover)
{
    if (QStandardPaths::findExecutable(u"audacious"_s).isEmpty())
        return nullptr;
    std::unique_ptr<RealPlayer> player(new RealPlayer(session, u"audacious"_s, cover));
    // A machine without a sound card still has the output that only keeps time.
    QByteArray registry = "format 11\n";
    for (const QString& library : QDir(u"/usr/lib"_s).entryList(QDir::Dirs)) {
        const QDir outputs(u"/usr/lib/%1/audacious/Output"_s.arg(library));
        for (const QString& name : outputs.entryList({u"*.so"_s}))
            registry += "output " + outputs.filePath(name).toUtf8() +
                        "\nstamp 1\nversion 48\nflags 0\nname x\ndomain audacious-plugins\n"
                        "priority 5\nabout 0\nconfig 0\nenabled " +
                        (name == u"sdlout.so" ? "1\n" : "0\n");
    }
    session.write(session.configPath(u"audacious/plugin-registry"_s), registry);
    player->m_process = session.start(player->m_name, u"env"_s,
                                      {u"SDL_AUDIODRIVER=dummy"_s, u"audacious"_s,
                                       player->m_folder.filePath(u"1.wav"_s),
                                       player->m_folder.filePath(u"2.wav"_s)});
    return player;
}

QString RealPlayer::entry() const { return u"/usr/share/applications/%1.desktop"_s.arg(m_name); }

std::optional<xcb_window_t> RealPlayer::window()
{
    Display& display = m_session.display();
    for (const std::uint32_t id : display.numbers(display.root(), "_NET_CLIENT_LIST"))
        if (display.bytes(id, "WM_CLASS").startsWith(m_name.toLatin1() + '\0'))
            return id;
    return std::nullopt;
}

QVariant RealPlayer::property(const QString& name)
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        u"org.mpris.MediaPlayer2."_s + m_name, u"/org/mpris/MediaPlayer2"_s,
        u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << u"org.mpris.MediaPlayer2.Player"_s << name;
    const QDBusMessage reply = m_bus.call(question, QDBus::Block, 1000);
    return reply.arguments().value(0).value<QDBusVariant>().variant();
}

QString RealPlayer::state() { return property(u"PlaybackStatus"_s).toString(); }

QString RealPlayer::title()
{
    const auto metadata = qdbus_cast<QVariantMap>(property(u"Metadata"_s));
    return metadata.value(u"xesam:title"_s).toString();
}

} // namespace lumbrix::privatedesk
