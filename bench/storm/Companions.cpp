// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "storm/Companions.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>

#include <csignal>
#include <cstdio>

#include "Colours.h"
#include "platform/StringLiterals.h"

namespace lumbrix::bench
{

using namespace Qt::StringLiterals;
using namespace privatedesk;

namespace
{

const QStringList identifiers{u"audacious"_s, u"org.gnome.Calendar"_s};

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QColor coverColour(int number) { return QColor::fromHsv(number * 47 % 360, 255, 230); }

constexpr int margin = 20; ///< of a calendar's preview, around its lines
constexpr int lineHeight = 17;

/// Of white text on a dark ground.
int linesOf(const QImage& picture)
{
    int lines = 0;
    bool wasText = false;
    for (int y = margin; y < picture.height() - margin; ++y) {
        bool isText = false;
        for (int x = margin; x < picture.width() - margin; ++x)
            isText = isText || qGray(picture.pixel(x, y)) > 200;
        lines += isText && !wasText ? 1 : 0;
        wasText = isText;
    }
    return lines;
}

} // namespace

Companions::Companions(Session& session) : m_session(session)
{
    for (const QString& name : identifiers)
        m_session.installApplication(name, name, name.at(0).toUpper() + name.mid(1), u"true"_s,
                                     Qt::gray);
}

QStringList Companions::entries() const
{
    QStringList result;
    for (const QString& name : identifiers)
        result << m_session.dataPath(u"applications/"_s + name + u".desktop"_s);
    return result;
}

void Companions::start()
{
    for (Server* server : {&m_player, &m_calendar})
        startServer(*server);
    for (const QString& name : identifiers) {
        m_applications.push_back(std::make_unique<Application>(m_session, name));
        m_applications.back()->open(name.toUtf8(), Qt::gray);
    }
}

void Companions::startServer(Server& server)
{
    const QString service = QString::fromLatin1(server.service);
    server.process.reset();
    ++server.number;
    if (&server == &m_player) {
        QImage cover(64, 64, QImage::Format_RGB32);
        cover.fill(coverColour(server.number));
        cover.save(coverOf(server.number, home()));
        QFile::remove(coverOf(server.number - 1, home()));
    }
    server.process =
        m_session.start(service, QCoreApplication::applicationFilePath(),
                        {u"--serve"_s, service, u"--number"_s, QString::number(server.number)});
}

QString Companions::home() const { return QDir::cleanPath(m_session.path(u"."_s)); }

bool Companions::isShown(const Application& application)
{
    const auto shown = m_session.display().previews();
    if (shown.size() != 1)
        return false;
    const QImage picture = m_session.display().picture(shown.front().geometry);
    if (&application != m_applications.front().get()) {
        const int events = eventsOf(m_calendar.number);
        return picture.height() == lineHeight * events + 2 * margin && linesOf(picture) == events;
    }
    if (shown.front().title != songOf(m_player.number).toUtf8())
        return false;
    for (int y = 0; y < picture.height(); ++y)
        if (isAbout(picture.pixel(picture.width() / 2, y), coverColour(m_player.number)))
            return true;
    return false;
}

void Companions::describe(const Application& application) const
{
    if (&application == m_applications.front().get())
        std::printf("  the player plays %s\n", qPrintable(songOf(m_player.number)));
    else
        std::printf("  the calendar has %d events\n", eventsOf(m_calendar.number));
}

std::vector<Fault> Companions::faults()
{
    std::vector<Fault> result;
    for (Server* server : {&m_player, &m_calendar}) {
        const std::string name(server->service);
        result.push_back({.name = name + " stopped",
                          .begin = [server] { server->process->signal(SIGSTOP); },
                          .end = [server] { server->process->signal(SIGCONT); }});
        result.push_back({.name = name + " crashed",
                          .begin = [server] { server->process->signal(SIGKILL); },
                          .end = [this, server] { startServer(*server); }});
    }
    result.push_back({.name = "accessibility bus stopped",
                      .begin = [this] { signalAccessibility(SIGSTOP); },
                      .end = [this] { signalAccessibility(SIGCONT); }});
    result.push_back({.name = "accessibility bus crashed",
                      .begin = [this] { signalAccessibility(SIGKILL); },
                      .end = [] {}});
    return result;
}

void Companions::signalAccessibility(int number) const
{
    const QByteArray ownHome = "HOME=" + home().toUtf8();
    for (const QString& process : QDir(u"/proc"_s).entryList({u"[0-9]*"_s}, QDir::Dirs)) {
        const QString folder = u"/proc/"_s + process;
        if (contentOf(folder + u"/comm"_s).startsWith("at-spi") &&
            contentOf(folder + u"/environ"_s).split('\0').contains(ownHome))
            ::kill(process.toInt(), number);
    }
}

} // namespace lumbrix::bench
