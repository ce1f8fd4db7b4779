// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Whether a system tray runs on this connection's screen.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>

#include "platform/linux/x11/Atoms.h"
#include "platform/linux/x11/EventThread.h"

namespace lumbrix::platform::x11
{

class TrayWatch final : public EventHandler
{
public:
    /// Before the event thread starts.
    TrayWatch(const Connection& connection, const Atoms& atoms);

    /// Any thread.
    bool isTrayRunning() const { return m_isTrayRunning; }
    /// Sets the callback for changes, called on the event thread. The former callback is not called
    /// any more once this has returned.
    void setChanged(std::function<void()> changed);

    void handleEvent(const xcb_generic_event_t& event) override;

private:
    const Connection& m_connection;
    const xcb_atom_t m_selection;
    std::atomic<bool> m_isTrayRunning = false;
    std::mutex m_mutex;
    std::function<void()> m_changed; // guarded by m_mutex
};

} // namespace lumbrix::platform::x11
