// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "storm/Companions.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>

#include <csignal>

#include "platform/StringLiterals.h"

namespace lumbrix::bench
{

using namespace Qt::StringLiterals;
using namespace privatedesk;

namespace
{

const QStringList identifiers{u"vlc"_s, u"org.gnome.Calendar"_s};

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
    server.process =
        m_session.start(service, QCoreApplication::applicationFilePath(), {u"--serve"_s, service});
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
    const QByteArray home = "HOME=" + QDir::cleanPath(m_session.path(u"."_s)).toUtf8();
    for (const QString& process : QDir(u"/proc"_s).entryList({u"[0-9]*"_s}, QDir::Dirs)) {
        const QString folder = u"/proc/"_s + process;
        if (contentOf(folder + u"/comm"_s).startsWith("at-spi") &&
            contentOf(folder + u"/environ"_s).split('\0').contains(home))
            ::kill(process.toInt(), number);
    }
}

} // namespace lumbrix::bench
