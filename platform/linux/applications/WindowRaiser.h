// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Brings windows to the front with a single request. The engine raises a window and activates its
// application together and repeatedly, and each further request to the window manager could raise
// another window or move the focus back and forth.
#pragma once

#include <functional>
#include <mutex>

#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform
{

/// Any thread.
class WindowRaiser
{
public:
    using Clock = std::function<double()>; ///< seconds, monotonic

    WindowRaiser(x11::WindowTracker& tracker, ApplicationRegistry& registry, Clock clock);

    /// Raises and activates the window, restores it if iconic, and switches to its desktop.
    void raise(xcb_window_t window);
    /// Raises the application's topmost window, unless the application is active or about to be.
    void activate(std::int32_t pid);

private:
    bool isUnderWay(xcb_window_t window) const; ///< with m_mutex held

    x11::WindowTracker& m_tracker;
    ApplicationRegistry& m_registry;
    const Clock m_clock;

    mutable std::mutex m_mutex;
    xcb_window_t m_raised = XCB_NONE;
    double m_raisedAt = 0.0;
};

} // namespace lumbrix::platform
