// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Detects the window manager and its own windows on the screen: its switcher, and the outlines of
// windows.
#pragma once

#include <atomic>
#include <map>
#include <vector>

#include "platform/linux/x11/Atoms.h"
#include "platform/linux/x11/EventThread.h"
#include "platform/linux/x11/Listeners.h"

namespace lumbrix::platform::x11
{

class Connection;
class X11WindowTracker;

/// Event thread. Must come after the tracker in the order of handlers, as that knows the frames.
/// Windows that existed before the window manager was known do not belong to its switcher.
class ManagerWatch final : public EventHandler
{
public:
    ManagerWatch(const Connection& connection, const Atoms& atoms, const X11WindowTracker& tracker,
                 const Listeners& listeners);

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsHandled() override;
    /// Whether a window manager says that it runs. Any thread.
    bool isManagerRunning() const { return m_isRunning; }

private:
    void fetchManager();
    void fetchMapped();
    bool isManagers(xcb_window_t window) const;

    const Connection& m_connection;
    const Atoms& m_atoms;
    const X11WindowTracker& m_tracker;
    const Listeners& m_listeners;
    xcb_window_t m_check = XCB_NONE; ///< has the window manager's name
    Manager m_manager;
    std::map<xcb_window_t, ManagerWindow> m_windows;
    std::vector<xcb_window_t> m_mapped; ///< not looked at yet
    bool m_isManagerDirty = true;
    bool m_isChanged = true;
    std::atomic<bool> m_isRunning = false;
};

} // namespace lumbrix::platform::x11
