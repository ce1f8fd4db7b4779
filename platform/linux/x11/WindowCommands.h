// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Executes requests of other threads on the event thread, each with a current server time: window
// managers ignore activations that look older than the last key press.
#pragma once

#include <xcb/xcb.h>

#include <array>
#include <functional>
#include <mutex>
#include <vector>

#include "platform/linux/x11/Atoms.h"
#include "platform/linux/x11/EventThread.h"

namespace lumbrix::platform::x11
{

class WindowCommands final : public EventHandler
{
public:
    using Command = std::function<void(xcb_timestamp_t now)>;

    WindowCommands(const Connection& connection, const Atoms& atoms, const WakeFd& wake);

    /// Returns at once; the command runs on the event thread. Any thread.
    void post(Command command);

    /// Sends a message about `window` to the root window, for the window manager. Event thread.
    void tellWindowManager(xcb_window_t window, AtomName type,
                           const std::array<std::uint32_t, 5>& data) const;

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsHandled() override;

private:
    const Connection& m_connection;
    const Atoms& m_atoms;
    const WakeFd& m_wake;
    xcb_window_t m_clock = XCB_NONE; ///< never mapped; a change of its property tells the time

    std::mutex m_mutex;
    std::vector<Command> m_posted;  // guarded by m_mutex
    std::vector<Command> m_waiting; ///< for the time; event thread
};

} // namespace lumbrix::platform::x11
