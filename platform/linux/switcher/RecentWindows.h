// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The windows in the order of their last activation, as window managers switch through them.
#pragma once

#include <vector>

#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform
{

/// Main thread.
class RecentWindows
{
public:
    using Windows = std::vector<xcb_window_t>;

    explicit RecentWindows(const x11::WindowTracker& tracker);

    void added(xcb_window_t window);
    void activated(xcb_window_t window);

    /// Applications' windows on the current desktop, the active one first.
    Windows ring() const;
    /// The same in KWin's way: a modal dialog replaces its window.
    Windows ringOfKWin() const;

private:
    template <class Test> std::vector<x11::TrackedWindowPtr> windowsHere(Test test) const;

    const x11::WindowTracker& m_tracker;
    Windows m_recent; ///< the last one that was active first
};

} // namespace lumbrix::platform
