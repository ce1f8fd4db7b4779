// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Server.h"
#include "platform/StringLiterals.h"

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace lumbrix::privatedesk
{

namespace
{

constexpr char configuration[] = R"(Section "ServerFlags"
  Option "AutoAddDevices" "false"
  Option "AutoEnableDevices" "false"
  Option "AutoAddGPU" "false"
  Option "DontVTSwitch" "true"
EndSection
Section "Module"
  Disable "glx"
EndSection
Section "Device"
  Identifier "card"
  Driver "dummy"
  VideoRam 65536
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 1-1000
  VertRefresh 1-1000
EndSection
Section "Screen"
  Identifier "screen"
  Device "card"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Modes "1280x1024"
    Virtual 4096 4096
  EndSubSection
EndSection
)";

/// The server picks a free number and writes it when it is ready.
Server start(ProcessOptions options)
{
    int fds[2];
    if (pipe2(fds, O_CLOEXEC) != 0)
        qFatal("no pipe");
    options.arguments +=
        {u"-displayfd"_s, QString::number(fds[1]), u"-nolisten"_s, u"tcp"_s, u"-noreset"_s};
    options.passFd = fds[1];
    Server server{Process::start(options), {}};
    close(fds[1]);
    QByteArray number;
    pollfd waited{fds[0], POLLIN, 0};
    char digit = 0;
    while (!number.endsWith('\n') &&
           poll(&waited, 1, static_cast<int>(patience(10000).count())) == 1 &&
           read(fds[0], &digit, 1) == 1)
        number += digit;
    close(fds[0]);
    if (number.endsWith('\n'))
        server.display = ':' + number.trimmed();
    return server;
}

} // namespace

Server startServer(QSize size, const QStringList& environment, const QString& log,
                   const QString& withoutExtension)
{
    ProcessOptions options;
    options.program = u"Xvfb"_s;
    options.arguments = {u"-screen"_s, u"0"_s, u"%1x%2x24"_s.arg(size.width()).arg(size.height())};
    if (!withoutExtension.isEmpty())
        options.arguments += {u"-extension"_s, withoutExtension};
    options.environment = environment;
    options.log = log;
    return start(std::move(options));
}

Server startMonitorServer(const QString& folder, const QStringList& environment, const QString& log)
{
    const QString path = folder + u"/xorg.conf"_s;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(configuration) < 0)
        qFatal("cannot write %s", qPrintable(path));
    file.close();
    ProcessOptions options;
    options.program = u"Xorg"_s;
    options.arguments = {u"-config"_s,   path,
                         u"-logfile"_s,  folder + u"/xorg.log"_s,
                         u"-sharevts"_s, u"-novtswitch"_s};
    // It would ask the login manager for the machine's console.
    options.environment = environment + QStringList{u"DBUS_SYSTEM_BUS_ADDRESS=unix:path=/none"_s};
    options.log = log;
    return start(std::move(options));
}

bool hasMonitorServer()
{
    static const bool has = [] {
        const QTemporaryDir folder;
        const QStringList environment{u"PATH="_s + qEnvironmentVariable("PATH")};
        return !startMonitorServer(folder.path(), environment, folder.filePath(u"log"_s))
                    .display.isEmpty();
    }();
    return has;
}

} // namespace lumbrix::privatedesk
