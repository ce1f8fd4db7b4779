// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/EventThread.h"

#include "platform/linux/x11/Connection.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

namespace lumbrix::platform::x11
{

namespace
{

/// Any program can send any event to another one, and could so report that a window is gone.
/// Legitimate sent events are client messages, and those that repeat what the server reports
/// itself: a window moved by its manager or withdrawn by its owner. Selections are handled by the
/// toolkit, on its own connection.
bool mayBeForged(const xcb_generic_event_t& event)
{
    constexpr int sent = 0x80;
    return (event.response_type & sent) != 0 && event.response_type != (sent | XCB_CLIENT_MESSAGE);
}

} // namespace

WakeFd::WakeFd() : m_fd(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

WakeFd::~WakeFd()
{
    if (m_fd >= 0)
        close(m_fd);
}

void WakeFd::wake() const { eventfd_write(m_fd, 1); }

void WakeFd::clear() const
{
    eventfd_t value = 0;
    eventfd_read(m_fd, &value);
}

JoinableThread::JoinableThread(RunLoop& runLoop, std::string name, RunLoop::ThreadBody body)
    : m_thread(runLoop.makeThread(std::move(name),
                                  [body = std::move(body), ended = m_ended](const Thread& self) {
                                      body(self);
                                      ended->release();
                                  }))
{
}

void JoinableThread::start()
{
    m_started = true;
    m_thread->start();
}

void JoinableThread::join()
{
    if (!m_started)
        return;
    m_thread->cancel();
    // A loop that is shutting down may never run the body; the thread then counts as finished.
    while (!m_ended->try_acquire_for(std::chrono::milliseconds(100)) && !m_thread->isFinished()) {
    }
    m_started = false;
}

EventThread::EventThread(RunLoop& runLoop, Connection& connection, const WakeFd& wake,
                         std::vector<EventHandler*> handlers,
                         std::function<void()> onConnectionLost)
    : m_runLoop(runLoop), m_connection(connection), m_wake(wake), m_handlers(std::move(handlers)),
      m_onConnectionLost(std::move(onConnectionLost)),
      m_thread(runLoop, "x11-events", [this](const Thread& self) { run(self); })
{
}

EventThread::~EventThread() { stop(); }

void EventThread::stop()
{
    m_stopping = true;
    m_wake.wake();
    m_thread.join();
}

void EventThread::run(const Thread& self)
{
    while (true) {
        m_wake.clear(); // first, as it may have been woken to stop
        if (m_stopping || self.isCancelled())
            return;
        dispatchQueue();
        if (m_connection.isBroken()) {
            if (m_onConnectionLost)
                m_onConnectionLost();
            return;
        }
        wait();
    }
}

void EventThread::dispatchQueue()
{
    const auto dispatch = [this](const Event& event) {
        if (mayBeForged(*event))
            return;
        for (EventHandler* handler : m_handlers)
            handler->handleEvent(*event);
    };
    Event event;
    do {
        if (event)
            dispatch(event);
        while ((event = Event(xcb_poll_for_event(m_connection.get()))))
            dispatch(event);
        for (EventHandler* handler : m_handlers)
            handler->eventsHandled();
        m_connection.flush();
        // Waiting for replies and flushing may have read events that poll() would not report.
        event = Event(xcb_poll_for_queued_event(m_connection.get()));
    } while (event && !m_stopping);
}

void EventThread::wait()
{
    int timeout = -1;
    for (const EventHandler* handler : m_handlers) {
        if (const auto deadline = handler->deadline()) {
            const double left = std::max(0.0, *deadline - m_runLoop.now());
            const int milliseconds = static_cast<int>(std::ceil(std::min(left, 3600.0) * 1000));
            timeout = timeout < 0 ? milliseconds : std::min(timeout, milliseconds);
        }
    }
    std::array<pollfd, 2> fds{
        pollfd{xcb_get_file_descriptor(m_connection.get()), POLLIN, 0},
        pollfd{m_wake.get(), POLLIN, 0},
    };
    poll(fds.data(), fds.size(), timeout);
}

} // namespace lumbrix::platform::x11
