// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Whether a message bus answers, found out before anything connects to it that would wait.
#pragma once

#include <QtCore/QSocketNotifier>
#include <QtCore/QString>

#include <functional>
#include <memory>

namespace lumbrix::platform
{

/// Connecting to a bus that hangs blocks once its queue of new connections is full. So it is asked
/// first, on a socket that never waits, which ways to log in it knows. Main thread.
class SocketProbe
{
public:
    explicit SocketProbe(std::function<void(bool)> done);
    ~SocketProbe();
    SocketProbe(const SocketProbe&) = delete;
    SocketProbe& operator=(const SocketProbe&) = delete;

    /// `address` as the bus tells it; only local sockets can be asked. `done` is called once, from
    /// the event loop or from here, with whether it answers; never when it is silent, nor after
    /// this is gone.
    void start(const QString& address);

private:
    bool connectTo(const QString& address);
    void readable();
    void finish(bool answers);

    std::function<void(bool)> m_done;
    int m_socket = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace lumbrix::platform
