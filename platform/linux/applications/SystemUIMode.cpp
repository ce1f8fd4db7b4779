// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/SystemUIMode.h"

#include <utility>

namespace lumbrix::platform
{

SystemUIMode::SystemUIMode(x11::WindowTracker& tracker, std::function<QRect()> mainScreen)
    : m_tracker(tracker), m_mainScreen(std::move(mainScreen))
{
}

void SystemUIMode::windowChanged(const x11::TrackedWindowPtr& before,
                                 const x11::TrackedWindowPtr& after)
{
    if (before->isFullscreen != after->isFullscreen || before->isIconic != after->isIconic ||
        before->desktop != after->desktop ||
        (after->isFullscreen && before->bounds != after->bounds))
        update();
}

// A full-screen window on another screen does not cover the dock. A full-screen window behind
// another window is below the dock, except if that is a dialog of its own. It also stays above
// while a menu or a launcher has taken the focus from all windows.
x11::TrackedWindowPtr SystemUIMode::windowInFront()
{
    if (const xcb_window_t active = m_tracker.activeWindow(); active != XCB_NONE)
        m_lastActive = active;
    constexpr int maxChainLength = 8;
    x11::TrackedWindowPtr window = m_tracker.window(m_lastActive);
    for (int i = 0; i < maxChainLength && window && !window->isFullscreen; ++i)
        window = m_tracker.window(window->transientFor);
    return window;
}

void SystemUIMode::update()
{
    const x11::TrackedWindowPtr window = windowInFront();
    const bool isFull = window && window->isFullscreen && !window->isIconic &&
                        (window->desktop < 0 || window->desktop == m_tracker.currentDesktop()) &&
                        window->bounds.contains(m_mainScreen());
    const std::uint32_t mode = isFull ? allHidden : 0;
    if (m_mode.exchange(mode) != mode && m_changed)
        m_changed();
}

} // namespace lumbrix::platform
