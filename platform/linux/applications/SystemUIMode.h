// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Whether the active window is full screen on the screen with the dock.
#pragma once

#include <QtCore/QRect>

#include <atomic>
#include <functional>

#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform
{

/// The listener's part runs on the event thread; mode() may be called on any.
class SystemUIMode final : public x11::WindowListener
{
public:
    /// Full screen, as a number of the system UI mode.
    static constexpr std::uint32_t allHidden = 3;

    /// `mainScreen` is called on the event thread and returns root pixels.
    SystemUIMode(x11::WindowTracker& tracker, std::function<QRect()> mainScreen);

    /// After the windows have been fetched, before the event thread starts.
    void start() { update(); }
    std::uint32_t mode() const { return m_mode; }
    /// Before the event thread starts; called on it.
    void setChanged(std::function<void()> changed) { m_changed = std::move(changed); }

    void activeWindowChanged(xcb_window_t) override { update(); }
    void windowAdded(const x11::TrackedWindowPtr&) override { update(); }
    void windowChanged(const x11::TrackedWindowPtr& before,
                       const x11::TrackedWindowPtr& after) override;
    void windowRemoved(const x11::TrackedWindowPtr&) override { update(); }
    void currentDesktopChanged(int) override { update(); }
    void screensChanged() override { update(); }

private:
    void update();
    x11::TrackedWindowPtr windowInFront();

    x11::WindowTracker& m_tracker;
    const std::function<QRect()> m_mainScreen;
    std::function<void()> m_changed;
    xcb_window_t m_lastActive = XCB_NONE; ///< event thread
    std::atomic<std::uint32_t> m_mode{0};
};

} // namespace lumbrix::platform
