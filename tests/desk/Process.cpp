// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Process.h"

#include <QtCore/QFile>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace lumbrix::privatedesk
{

using Clock = std::chrono::steady_clock;

std::chrono::milliseconds patience(int milliseconds)
{
    static const double factor = [] {
        const double value = qEnvironmentVariable("LUMBRIX_TEST_SLOWDOWN").toDouble();
        return value >= 1 ? value : 1.0;
    }();
    return std::chrono::milliseconds(static_cast<long>(milliseconds * factor));
}

namespace
{

int millisecondsUntil(Clock::time_point deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    return static_cast<int>(std::max<long>(0, left.count()));
}

std::vector<char*> pointers(std::vector<QByteArray>& strings)
{
    std::vector<char*> result;
    result.reserve(strings.size() + 1);
    for (QByteArray& string : strings)
        result.push_back(string.data());
    result.push_back(nullptr);
    return result;
}

} // namespace

std::unique_ptr<Process> Process::start(const ProcessOptions& options)
{
    std::unique_ptr<Process> process(new Process);
    std::vector<QByteArray> arguments{options.program.toLocal8Bit()};
    for (const QString& argument : options.arguments)
        arguments.push_back(argument.toLocal8Bit());
    std::vector<QByteArray> environment;
    for (const QString& variable : options.environment)
        environment.push_back(variable.toLocal8Bit());
    const std::vector<char*> argv = pointers(arguments);
    const std::vector<char*> envp = pointers(environment);

    int toChild[2] = {-1, -1};
    int fromChild[2] = {-1, -1};
    if (options.pipes && (pipe2(toChild, O_CLOEXEC) != 0 || pipe2(fromChild, O_CLOEXEC) != 0))
        qFatal("no pipe for %s", argv.front());
    const int log = open(QFile::encodeName(options.log).constData(),
                         O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    const int null = open("/dev/null", O_RDONLY | O_CLOEXEC);
    const int passed = options.passFd.value_or(-1);
    const pid_t parent = getpid();

    const pid_t pid = fork();
    if (pid == 0) {
        // Only calls that are safe between fork and exec: other threads may have held locks.
        setpgid(0, 0);
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (getppid() != parent)
            _exit(127);
        dup2(options.pipes ? toChild[0] : null, STDIN_FILENO);
        dup2(options.pipes ? fromChild[1] : log, STDOUT_FILENO);
        dup2(log, STDERR_FILENO);
        if (passed >= 0)
            fcntl(passed, F_SETFD, 0);
        execvpe(argv.front(), argv.data(), envp.data());
        _exit(127);
    }
    setpgid(pid, pid);
    process->m_pid = pid;
    for (const int fd : {toChild[0], fromChild[1], log, null})
        if (fd >= 0)
            close(fd);
    process->m_in = toChild[1];
    process->m_out = fromChild[0];
    return process;
}

Process::~Process()
{
    stop();
    for (const int fd : {m_in, m_out})
        if (fd >= 0)
            close(fd);
}

bool Process::isRunning() { return !waitForExit(std::chrono::milliseconds(0)); }

void Process::signal(int number)
{
    if (isRunning())
        kill(m_pid, number);
}

std::optional<int> Process::waitForExit(std::chrono::milliseconds timeout)
{
    if (m_status)
        return m_status;
    const auto deadline = Clock::now() + timeout;
    // A descriptor for the process becomes readable at its end, so the wait needs no polling.
    const int fd = static_cast<int>(syscall(SYS_pidfd_open, m_pid, 0));
    for (;;) {
        siginfo_t ended{};
        if (waitid(P_PID, static_cast<id_t>(m_pid), &ended, WEXITED | WNOWAIT | WNOHANG) != 0) {
            // Somebody else has reaped it; its number may be another's by now.
            m_status = -1;
            break;
        }
        if (ended.si_pid == m_pid) {
            // What the process itself has started ends with it. Until the process is reaped
            // nobody else can have its number.
            kill(-m_pid, SIGKILL);
            int status = 0;
            waitpid(m_pid, &status, 0);
            m_status = status;
            break;
        }
        const int left = millisecondsUntil(deadline);
        if (left == 0)
            break;
        pollfd waited{fd, POLLIN, 0};
        poll(&waited, fd >= 0 ? 1 : 0, fd >= 0 ? left : std::min(left, 10));
    }
    if (fd >= 0)
        close(fd);
    return m_status;
}

void Process::stop(std::chrono::milliseconds timeout)
{
    if (isRunning()) {
        kill(m_pid, SIGCONT);
        kill(m_pid, SIGTERM);
        if (!waitForExit(timeout)) {
            kill(-m_pid, SIGKILL);
            waitForExit(std::chrono::seconds(10));
        }
    }
}

void Process::writeLine(const QByteArray& line)
{
    const QByteArray bytes = line + '\n';
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t n =
            write(m_in, bytes.constData() + written, static_cast<size_t>(bytes.size() - written));
        if (n <= 0)
            return;
        written += n;
    }
}

std::optional<QByteArray> Process::readLine(std::chrono::milliseconds timeout)
{
    const auto deadline = Clock::now() + timeout;
    for (;;) {
        const qsizetype end = m_read.indexOf('\n');
        if (end >= 0) {
            const QByteArray line = m_read.left(end);
            m_read.remove(0, end + 1);
            return line;
        }
        pollfd waited{m_out, POLLIN, 0};
        if (poll(&waited, 1, millisecondsUntil(deadline)) <= 0)
            return std::nullopt;
        char buffer[4096];
        const ssize_t n = read(m_out, buffer, sizeof buffer);
        if (n <= 0)
            return std::nullopt;
        m_read.append(buffer, n);
    }
}

} // namespace lumbrix::privatedesk
