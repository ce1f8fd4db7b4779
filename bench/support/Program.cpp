// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/Program.h"

#include <algorithm>
#include <csignal>
#include <cstdio>

namespace lumbrix::bench
{

Program::Program(int& argc, char** argv, const QList<QCommandLineOption>& options)
    : m_application(argc, argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    m_parser.addHelpOption();
    m_parser.addOptions(options);
    m_parser.process(m_application);
}

int Program::number(const QString& option) const { return std::max(1, text(option).toInt()); }

} // namespace lumbrix::bench
