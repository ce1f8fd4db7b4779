// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Server.h"

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
        {u"-displayfd"_qs, QString::number(fds[1]), u"-nolisten"_qs, u"tcp"_qs, u"-noreset"_qs};
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

Server startServer(QSize size, const QStringList& environment, const QString& log)
{
    ProcessOptions options;
    options.program = u"Xvfb"_qs;
    options.arguments = {u"-screen"_qs, u"0"_qs,
                         u"%1x%2x24"_qs.arg(size.width()).arg(size.height())};
    options.environment = environment;
    options.log = log;
    return start(std::move(options));
}

Server startMonitorServer(const QString& folder, const QStringList& environment, const QString& log)
{
    const QString path = folder + u"/xorg.conf"_qs;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(configuration) < 0)
        qFatal("cannot write %s", qPrintable(path));
    file.close();
    ProcessOptions options;
    options.program = u"Xorg"_qs;
    options.arguments = {u"-config"_qs,   path,
                         u"-logfile"_qs,  folder + u"/xorg.log"_qs,
                         u"-sharevts"_qs, u"-novtswitch"_qs};
    // It would ask the login manager for the machine's console.
    options.environment = environment + QStringList{u"DBUS_SYSTEM_BUS_ADDRESS=unix:path=/none"_qs};
    options.log = log;
    return start(std::move(options));
}

bool hasMonitorServer()
{
    static const bool has = [] {
        const QTemporaryDir folder;
        const QStringList environment{u"PATH="_qs + qEnvironmentVariable("PATH")};
        return !startMonitorServer(folder.path(), environment, folder.filePath(u"log"_qs))
                    .display.isEmpty();
    }();
    return has;
}

} // namespace lumbrix::privatedesk
