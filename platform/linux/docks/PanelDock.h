// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Any panel with a task bar: its buttons are where it says that it shows the windows' icons.
#pragma once

#include <QtCore/QMargins>

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
    /// The space that a window keeps free at each edge of the screen; null when it does not say.
    /// Main thread; may ask the server.
    using StrutReader = std::function<std::optional<QMargins>(xcb_window_t)>;

    /// `buttons` are what is asked where the windows' properties do not tell the places; null =
    /// nobody. Main thread, as is the destructor.
    PanelDock(RunLoop& runLoop, x11::WindowTracker& tracker, const x11::PointSpace& space,
              StrutReader strutReader, std::unique_ptr<AccessibleButtons> buttons = nullptr);
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
    /// Where one panel window shows one window.
    struct Placement {
        double writtenAt = 0.0;
        PlacedWindow latest;
        std::optional<PlacedWindow> settled; ///< the last one that stood for a while
    };
    using Placements = std::map<xcb_window_t, Placement>; ///< by panel window

    void notePlace(const x11::TrackedWindow& window, double writtenAt);
    /// Takes in the windows that were placed where no panel was to be seen.
    void noteMissingPlaces();
    void scheduleDerivation();
    void derive();
    /// True when a place is too fresh to be believed.
    bool settle(double now);
    DockStatePtr makeState(const x11::TrackedWindow& panel,
                           const std::vector<x11::TrackedWindowPtr>& windows);
    /// Where the panel told the window it is; null when it is not known. With m_mutex held.
    std::optional<PlacedWindow> placeOn(xcb_window_t panel, xcb_window_t window) const;
    /// Has the panels' buttons read whose windows' properties tell too little of them.
    void updateButtons(const std::vector<x11::TrackedWindowPtr>& windows);
    std::vector<DockWindow> dockWindows() const;
    QRect screenOf(const QRect& panel) const;

    RunLoop& m_runLoop;
    x11::WindowTracker& m_tracker;
    const x11::PointSpace& m_space;
    const StrutReader m_strutReader;
    const MainThreadGuard m_guard;
    const std::unique_ptr<AccessibleButtons> m_buttons; ///< may be null; main thread
    PlaceWriters m_writers;
    std::atomic<bool> m_isScheduled{false};
    std::atomic<bool> m_hasChanged{false}; ///< what panels show, since the last derivation
    std::set<xcb_window_t> m_everUsed;     ///< panels that showed a window once; main thread

    mutable std::mutex m_mutex;
    std::map<xcb_window_t, Placements> m_placements; // guarded by m_mutex; by shown window
    std::vector<DockStatePtr> m_states;              // guarded by m_mutex
};

} // namespace lumbrix::platform
