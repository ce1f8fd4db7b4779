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
        (after->isFullscreen && before->bounds != after->bounds)) {
        update();
    }
}

// A window that fills another screen leaves the dock where it is. One that does not have the focus
// is below the dock.
void SystemUIMode::update()
{
    const x11::TrackedWindowPtr active = m_tracker.window(m_tracker.activeWindow());
    const bool isFull = active && active->isFullscreen && !active->isIconic &&
                        active->bounds.contains(m_mainScreen());
    const std::uint32_t mode = isFull ? AllHidden : 0;
    if (m_mode.exchange(mode) != mode && m_changed) {
        m_changed();
    }
}

} // namespace lumbrix::platform
