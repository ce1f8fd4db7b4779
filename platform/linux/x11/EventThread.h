// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The thread that reads X events, and its handlers.
#pragma once

#include <xcb/xcb.h>

#include <atomic>
#include <functional>
#include <optional>
#include <semaphore>
#include <vector>

#include "platform/RunLoop.h"

namespace lumbrix::platform::x11
{

class Connection;

/// Receives events. Called on the event thread only, in the order of the list. Of the events sent
/// by other programs only client messages are passed on.
class EventHandler
{
public:
    virtual ~EventHandler() = default;
    virtual void handleEvent(const xcb_generic_event_t& event) = 0;
    /// All pending events have been handled. Handlers query the server for changes here, so that a
    /// burst of events costs one round trip.
    virtual void eventsHandled() {}
    /// The time at which eventsHandled() must be called even without an event; in RunLoop::now().
    /// Null: never.
    virtual std::optional<Seconds> deadline() const { return std::nullopt; }
};

/// Lets another thread wake a thread that polls a file descriptor.
class WakeFd
{
public:
    WakeFd();
    ~WakeFd();
    WakeFd(const WakeFd&) = delete;
    WakeFd& operator=(const WakeFd&) = delete;

    int get() const { return m_fd; }
    void wake() const;
    void clear() const;

private:
    const int m_fd;
};

/// A thread of the run loop that its owner can wait for.
class JoinableThread
{
public:
    /// Not started yet.
    JoinableThread(RunLoop& runLoop, std::string name, RunLoop::ThreadBody body);
    void start();
    /// Returns when the body has ended; at once if it was never started.
    void join();

private:
    std::shared_ptr<std::binary_semaphore> m_ended = std::make_shared<std::binary_semaphore>(0);
    ThreadPtr m_thread;
    bool m_started = false;
};

/// Must be started and stopped on its owner's thread; stopping twice does no harm.
class EventThread
{
public:
    /// `onConnectionLost` runs at most once, on the event thread, as the last thing it does.
    EventThread(RunLoop& runLoop, Connection& connection, const WakeFd& wake,
                std::vector<EventHandler*> handlers, std::function<void()> onConnectionLost);
    ~EventThread();

    void start() { m_thread.start(); }
    /// After it returns, no handler is called any more.
    void stop();

private:
    void run(const Thread& self);
    void dispatchQueue();
    void wait();

    RunLoop& m_runLoop;
    Connection& m_connection;
    const WakeFd& m_wake;
    const std::vector<EventHandler*> m_handlers;
    const std::function<void()> m_onConnectionLost;
    std::atomic<bool> m_stopping = false;
    JoinableThread m_thread;
};

} // namespace lumbrix::platform::x11
