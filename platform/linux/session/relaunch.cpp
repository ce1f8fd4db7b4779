// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// lumbrix-relaunch PROGRAM PID: waits until the process has ended, then executes the program.
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <string_view>

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace
{

void waitForEnd(pid_t pid)
{
    const int process = static_cast<int>(syscall(SYS_pidfd_open, pid, 0));
    if (process >= 0) {
        pollfd ended{process, POLLIN, 0};
        while (poll(&ended, 1, -1) < 0 && errno == EINTR) {
        }
        close(process);
        return;
    }
    // The process has already ended, or the kernel does not support process descriptors.
    constexpr useconds_t interval = 50'000;
    while (kill(pid, 0) == 0)
        usleep(interval);
}

} // namespace

int main(int argc, char** argv)
{
    pid_t pid = 0;
    if (argc == 3) {
        const std::string_view text = argv[2];
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), pid);
        if (error != std::errc() || end != text.data() + text.size())
            pid = 0;
    }
    if (pid <= 0) {
        std::fputs("Usage: lumbrix-relaunch PROGRAM PID\n", stderr);
        return 2;
    }
    waitForEnd(pid);
    execl(argv[1], argv[1], nullptr);
    std::fprintf(stderr, "lumbrix-relaunch: %s: %s\n", argv[1], std::strerror(errno));
    return 1;
}
