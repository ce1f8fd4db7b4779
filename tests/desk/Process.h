// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A child process that ends with its owner, and with the test program whatever happens to it.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <chrono>
#include <memory>
#include <optional>

namespace lumbrix::privatedesk
{

/// A wait's length on this machine: sanitizers and slow machines stretch all of them alike through
/// the environment variable LUMBRIX_TEST_SLOWDOWN (a factor).
std::chrono::milliseconds patience(int milliseconds);

struct ProcessOptions {
    QString program;           ///< looked up in PATH when it has no slash
    QStringList arguments;     ///<
    QStringList environment;   ///< the whole of it, "NAME=value"
    QString log;               ///< standard output and error are appended to this file
    bool pipes = false;        ///< standard input and output are pipes to us; errors go to the log
    std::optional<int> passFd; ///< one descriptor that the child keeps open
};

/// Main thread. The child leads a process group of its own; the destructor ends the whole group.
class Process
{
public:
    /// Never null; a program that cannot be started has exited with 127.
    static std::unique_ptr<Process> start(const ProcessOptions& options);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    int pid() const { return m_pid; }
    bool isRunning();
    void signal(int number);
    /// The exit status as from waitpid once the process has ended; none at the deadline.
    std::optional<int> waitForExit(std::chrono::milliseconds timeout);
    /// SIGTERM, and SIGKILL to the group when it does not end in time.
    void stop(std::chrono::milliseconds timeout = patience(2000));

    // With pipes only.
    void writeLine(const QByteArray& line);
    /// The next line that the process printed, without its end; none at the deadline.
    std::optional<QByteArray> readLine(std::chrono::milliseconds timeout);

private:
    Process() = default;

    int m_pid = -1;
    std::optional<int> m_status;
    int m_in = -1;
    int m_out = -1;
    QByteArray m_read;
};

} // namespace lumbrix::privatedesk
