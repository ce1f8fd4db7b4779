// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which panels cannot be believed to tell windows where they show them.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <vector>

#include "platform/linux/x11/TrackedWindow.h"

namespace lumbrix::platform
{

/// A window has room for one place only: with two docks that write it, it says where one of them
/// shows the window, and nothing of the other. A panel that has written none at all though there
/// are windows may just not be one of those that write.
class PlaceWriters
{
public:
    /// A dock of this process has told a window its place. Any thread.
    void wrote(std::int32_t pid);

    struct Doubt {
        std::set<std::int32_t> pids; ///< processes of panels
        double lookAgain = 0.0;      ///< seconds until a silent one is doubted; 0 = none is silent
    };
    /// `docks` are the windows of all docks, `placed` the processes of those that some window is
    /// shown on now, as far as is known. Main thread; seconds of a monotonic clock.
    Doubt doubt(const std::vector<x11::TrackedWindowPtr>& docks,
                const std::set<std::int32_t>& placed, bool areThereTasks, double now);

private:
    std::mutex m_mutex;
    std::set<std::int32_t> m_writers;             // guarded by m_mutex
    std::map<std::int32_t, double> m_silentSince; // by process; main thread
};

} // namespace lumbrix::platform
