// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/WindowRaiser.h"

#include <algorithm>

namespace lumbrix::platform
{

namespace
{
// Window managers answer within milliseconds; users do not click this fast.
constexpr double underWay = 0.3;
} // namespace

WindowRaiser::WindowRaiser(x11::WindowTracker& tracker, ApplicationRegistry& registry, Clock clock)
    : m_tracker(tracker), m_registry(registry), m_clock(std::move(clock))
{
}

bool WindowRaiser::isUnderWay(xcb_window_t window) const
{
    return m_raised == window && window != XCB_NONE && m_clock() - m_raisedAt < underWay;
}

void WindowRaiser::raise(xcb_window_t window)
{
    const x11::TrackedWindowPtr tracked = m_tracker.window(window);
    if (!tracked)
        return;
    {
        const std::lock_guard lock(m_mutex);
        if (isUnderWay(window))
            return;
        m_raised = window;
        m_raisedAt = m_clock();
    }
    if (tracked->isIconic)
        m_tracker.deiconify(window);
    m_tracker.activate(window);
}

void WindowRaiser::activate(std::int32_t pid)
{
    const auto owns = [&](const x11::TrackedWindowPtr& window) {
        return window && isApplicationWindow(*window) && m_registry.ownerPidOf(*window) == pid;
    };
    xcb_window_t raised = XCB_NONE;
    {
        const std::lock_guard lock(m_mutex);
        raised = isUnderWay(m_raised) ? m_raised : XCB_NONE;
    }
    // A window that was just raised is about to become active, whatever is active now.
    const xcb_window_t active = raised != XCB_NONE ? raised : m_tracker.activeWindow();
    if (owns(m_tracker.window(active)))
        return;
    const int desktop = m_tracker.currentDesktop();
    const auto distance = [desktop](const x11::TrackedWindow& window) {
        const bool isHere = window.desktop < 0 || window.desktop == desktop;
        return (window.isIconic ? 2 : 0) + (isHere ? 0 : 1);
    };
    x11::TrackedWindowPtr best;
    for (const x11::TrackedWindowPtr& window : m_tracker.windows())
        if (owns(window) && (!best || distance(*window) < distance(*best)))
            best = window;
    if (best)
        raise(best->id);
}

} // namespace lumbrix::platform
