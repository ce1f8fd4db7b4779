// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Any panel with a task bar: it reports the position of each button in a property of the window.
#pragma once

#include <atomic>
#include <map>
#include <mutex>
#include <set>

#include "platform/MainThreadGuard.h"
#include "platform/RunLoop.h"
#include "platform/linux/docks/AccessibleButtons.h"
#include "platform/linux/docks/DockProvider.h"
#include "platform/linux/docks/IconGeometry.h"
#include "platform/linux/docks/PlaceWriters.h"
#include "platform/linux/x11/PointSpace.h"

namespace lumbrix::platform
{

class PanelDock final : public DockProvider
{
public:
    /// `buttons` is used if the windows' properties do not give the positions; null = not
    /// available. Main thread, as is the destructor.
    PanelDock(RunLoop& runLoop, x11::WindowTracker& tracker, const x11::PointSpace& space,
              std::unique_ptr<AccessibleButtons> buttons = nullptr);
    ~PanelDock() override;

    const char* name() const override { return "Panel"; }
    void start() override;
    std::vector<DockStatePtr> states() const override;
    void synchronize() override;

    void windowAdded(const x11::TrackedWindowPtr& window) override;
    void windowChanged(const x11::TrackedWindowPtr& before,
                       const x11::TrackedWindowPtr& after) override;
    void windowRemoved(const x11::TrackedWindowPtr& last) override;
    void currentDesktopChanged(int desktop) override;
    void screensChanged() override;

private:
    /// The position of one window's button on one panel window.
    struct Placement {
        double writtenAt = 0.0;
        PlacedWindow latest;
        std::optional<PlacedWindow> settled; ///< the last position that was stable for a while
    };
    using Placements = std::map<xcb_window_t, Placement>; ///< by panel window

    void notePlace(const x11::TrackedWindow& window, double writtenAt);
    /// Records the positions again that were not on any panel when they were written.
    void noteMissingPlaces();
    void scheduleDerivation();
    void derive();
    /// Returns true if a position is too recent to be trusted.
    bool settle(double now);
    /// Of all panels together, as one may have hundreds of windows.
    std::map<xcb_window_t, std::vector<PlacedWindow>>
    placesByPanel(const std::vector<x11::TrackedWindowPtr>& shown) const;
    DockStatePtr makeState(const x11::TrackedWindow& panel,
                           const std::vector<PlacedWindow>& placed);
    /// Requests reading the buttons of panels whose windows' properties are not sufficient.
    void updateButtons(const std::vector<x11::TrackedWindowPtr>& windows);
    /// Notes which windows are docks, so that not all are looked through for the place of each.
    void updateDocks();
    std::vector<DockWindow> dockWindows() const;
    QRect screenOf(const QRect& panel) const;

    RunLoop& m_runLoop;
    x11::WindowTracker& m_tracker;
    const x11::PointSpace& m_space;
    const MainThreadGuard m_guard;
    const std::unique_ptr<AccessibleButtons> m_buttons; ///< may be null; main thread
    PlaceWriters m_writers;
    std::atomic<bool> m_isScheduled{false};
    std::atomic<bool> m_hasChanged{false}; ///< the buttons have changed since the last derivation
    std::set<xcb_window_t> m_everUsed;     ///< panels that have ever shown a window; main thread

    mutable std::mutex m_mutex;
    std::map<xcb_window_t, Placements> m_placements; // guarded by m_mutex; by shown window
    std::vector<DockStatePtr> m_states;              // guarded by m_mutex
    std::vector<xcb_window_t> m_docks;               // guarded by m_mutex; of all providers
};

} // namespace lumbrix::platform
