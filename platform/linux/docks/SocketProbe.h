// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Checks whether a message bus answers, before a blocking connection to it is made.
#pragma once

#include <QtCore/QSocketNotifier>
#include <QtCore/QString>

#include <functional>
#include <memory>

namespace lumbrix::platform
{

/// Connecting to a bus that hangs blocks once its queue of new connections is full. So this first
/// asks it, on a non-blocking socket, for its authentication mechanisms. Main thread.
class SocketProbe
{
public:
    explicit SocketProbe(std::function<void(bool)> done);
    ~SocketProbe();
    SocketProbe(const SocketProbe&) = delete;
    SocketProbe& operator=(const SocketProbe&) = delete;

    /// `address` is a bus address; only local sockets are supported. `done` is called once, from
    /// the event loop or from this call, with whether the bus answers; never if it stays silent,
    /// nor after this object is destroyed.
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
