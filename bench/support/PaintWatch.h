// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// When windows come onto the screen and when something is drawn on them, seen from outside.
#pragma once

#include <QtCore/QByteArray>

#include <atomic>
#include <chrono>
#include <mutex>
#include <set>
#include <thread>
#include <vector>
#include <xcb/xcb.h>

namespace lumbrix::bench
{

using Clock = std::chrono::steady_clock;

/// Watches every window that bypasses the window manager, as panels and switchers do, on a
/// connection and a thread of its own. Events of programs that are drawing as fast as they can are
/// seen some 50 µs after the server handled the request.
class PaintWatch
{
public:
    struct Event {
        enum class Kind { Mapped, Unmapped, Painted } kind;
        Clock::time_point at;
        xcb_window_t window;
    };

    /// The display's name, as in DISPLAY. Ends the program when there is no such server.
    explicit PaintWatch(const QByteArray& display);
    ~PaintWatch();
    PaintWatch(const PaintWatch&) = delete;
    PaintWatch& operator=(const PaintWatch&) = delete;

    /// Forgets what was seen so far. Any thread, as the next.
    void clear();
    std::vector<Event> events() const;
    /// The windows that something was drawn on.
    std::set<xcb_window_t> paintedWindows() const;
    /// When the last event came; the time of clear() when none has come since.
    Clock::time_point lastEvent() const;

private:
    void run();
    void watch(xcb_window_t window);
    void handle(const xcb_generic_event_t& event);

    xcb_connection_t* m_connection = nullptr;
    std::uint8_t m_damageEvent = 0;
    std::set<xcb_window_t> m_watched; ///< the thread's own
    mutable std::mutex m_mutex;
    std::vector<Event> m_events;   ///< guarded by m_mutex
    Clock::time_point m_lastEvent; ///< guarded by m_mutex
    std::atomic<bool> m_isStopping = false;
    std::thread m_thread;
};

} // namespace lumbrix::bench
