// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Decides which panels' window properties cannot be trusted.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <vector>

#include "platform/linux/x11/TrackedWindow.h"

namespace lumbrix::platform
{

/// A window's property has only one position: if two docks write it, it is that of one dock, and
/// nothing is known about the other. A panel that has written none although there are windows may
/// be one that never writes.
class PlaceWriters
{
public:
    /// A dock of this process has written a window's position. Any thread.
    void wrote(std::int32_t pid);

    struct Doubt {
        std::set<std::int32_t> pids; ///< processes of panels
        double lookAgain = 0.0;      ///< seconds until a silent one is doubted; 0 = none is silent
    };
    /// `docks` are the windows of all docks, `placed` the processes of docks that show at least one
    /// window now, as far as is known. Main thread; seconds of a monotonic clock.
    Doubt doubt(const std::vector<x11::TrackedWindowPtr>& docks,
                const std::set<std::int32_t>& placed, bool areThereTasks, double now);

private:
    std::mutex m_mutex;
    std::set<std::int32_t> m_writers;             // guarded by m_mutex
    std::map<std::int32_t, double> m_silentSince; // by process; main thread
};

} // namespace lumbrix::platform
