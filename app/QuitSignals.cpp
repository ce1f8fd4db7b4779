// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/QuitSignals.h"

#include <QtCore/QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace lumbrix
{
namespace
{

constexpr std::array quitSignals{SIGTERM, SIGINT, SIGHUP};
/// The handler may do nothing but write to a pipe; the event loop reads the other end.
std::array<int, 2> pipeEnds{-1, -1};

extern "C" void quitSignalled(int)
{
    const int savedErrno = errno;
    const char byte = 1;
    [[maybe_unused]] const auto written = write(pipeEnds[1], &byte, 1);
    errno = savedErrno;
}

} // namespace

QuitSignals::QuitSignals()
{
    if (pipe(pipeEnds.data()) != 0)
        return; // the signals then kill the program, as they do by default
    for (const int end : pipeEnds)
        fcntl(end, F_SETFD, FD_CLOEXEC);
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &QuitSignals::signalled);
    struct sigaction action = {};
    action.sa_handler = quitSignalled;
    action.sa_flags = SA_RESTART;
    for (const int signal : quitSignals)
        sigaction(signal, &action, nullptr);
}

QuitSignals::~QuitSignals()
{
    for (const int signal : quitSignals)
        std::signal(signal, SIG_DFL);
    m_notifier.reset();
    for (int& end : pipeEnds) {
        if (end >= 0)
            close(end);
        end = -1;
    }
}

void QuitSignals::signalled()
{
    char byte = 0;
    [[maybe_unused]] const auto got = read(pipeEnds[0], &byte, 1);
    Q_EMIT quitRequested();
}

} // namespace lumbrix
