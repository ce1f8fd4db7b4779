// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlaceWriters.h"

#include <algorithm>

#include "platform/linux/docks/PlankDock.h"

namespace lumbrix::platform
{

namespace
{

// Panels write within 45 ms after a window appears, later while the session starts.
constexpr double silenceTime = 2.0; // seconds

} // namespace

void PlaceWriters::wrote(std::int32_t pid)
{
    const std::lock_guard lock(m_mutex);
    m_writers.insert(pid);
}

PlaceWriters::Doubt PlaceWriters::doubt(const std::vector<x11::TrackedWindowPtr>& docks,
                                        const std::set<std::int32_t>& placed, bool areThereTasks,
                                        double now)
{
    std::set<std::int32_t> running;
    std::set<std::int32_t> panels;
    for (const x11::TrackedWindowPtr& dock : docks) {
        if (dock->pid) {
            running.insert(*dock->pid);
            if (!isPlankWindow(*dock)) // which reports its items in another way
                panels.insert(*dock->pid);
        }
    }
    std::erase_if(m_silentSince, [&](const auto& silent) {
        return !panels.contains(silent.first) || placed.contains(silent.first);
    });
    Doubt result;
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_writers, [&](std::int32_t pid) { return !running.contains(pid); });
    for (const std::int32_t pid : panels) {
        if (std::ranges::any_of(m_writers, [pid](std::int32_t writer) { return writer != pid; })) {
            result.pids.insert(pid);
        } else if (!placed.contains(pid) && (areThereTasks || m_silentSince.contains(pid))) {
            const double left =
                m_silentSince.try_emplace(pid, now).first->second + silenceTime - now;
            if (left <= 0)
                result.pids.insert(pid);
            else
                result.lookAgain = std::max(result.lookAgain, left);
        }
    }
    return result;
}

} // namespace lumbrix::platform
