// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The one thread that reads X events, and what it hands them to.
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

/// Something that follows events. Called on the event thread only, in the order of the list. Of
/// the events that programs send each other only client messages come.
class EventHandler
{
public:
    virtual ~EventHandler() = default;
    virtual void handleEvent(const xcb_generic_event_t& event) = 0;
    /// All events that had arrived were handled: the time to ask the server for what they changed,
    /// so that a burst costs one round trip.
    virtual void eventsHandled() {}
    /// When eventsHandled() is wanted without an event; in RunLoop::now(). Null: never.
    virtual std::optional<Seconds> deadline() const { return std::nullopt; }
};

/// Lets another thread wake one that polls a file descriptor.
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
    /// Returns when the body has ended; at once when it was never started.
    void join();

private:
    std::shared_ptr<std::binary_semaphore> m_ended = std::make_shared<std::binary_semaphore>(0);
    ThreadPtr m_thread;
    bool m_started = false;
};

/// Started and stopped by its owner's thread; stopping twice is harmless.
class EventThread
{
public:
    /// `onConnectionLost` runs at most once, on the event thread, as the last thing it does.
    EventThread(RunLoop& runLoop, Connection& connection, const WakeFd& wake,
                std::vector<EventHandler*> handlers, std::function<void()> onConnectionLost);
    ~EventThread();

    void start() { m_thread.start(); }
    /// Returns when no handler will be called again.
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
