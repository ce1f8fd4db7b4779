// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The positions of panels' window buttons, read from their accessibility tree, for panels whose
// buttons cannot be found by window properties.
#pragma once

#include <map>
#include <memory>
#include <set>

#include "platform/RunLoop.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/docks/AccessibleBus.h"
#include "platform/linux/docks/IconGeometry.h"
#include "platform/linux/docks/PanelWalk.h"

namespace lumbrix::platform
{

/// Whether a task bar shows the window on this desktop.
bool isTask(const x11::TrackedWindow& window, int desktop);

/// Main thread. Reads on request and when a panel reports that its buttons moved, one panel at a
/// time and at most a few times a second; never when a button is hovered. For a panel that does not
/// answer, its former data stays valid. Connected only while wanted panels are on the bus.
class AccessibleButtons
{
public:
    AccessibleButtons(RunLoop& runLoop, x11::WindowTracker& tracker, ApplicationRegistry& registry,
                      const QDBusConnection& session);
    ~AccessibleButtons();
    AccessibleButtons(const AccessibleButtons&) = delete;
    AccessibleButtons& operator=(const AccessibleButtons&) = delete;

    /// Sets the processes whose panels are read from now on; data of others is dropped.
    void want(const std::set<std::int32_t>& pids);
    /// Windows or panels have changed: reads again, soon.
    void refresh();
    /// The windows with a button on this dock window; null if it has shown none so far, or is not
    /// wanted.
    const std::vector<PlacedWindow>* places(xcb_window_t panel) const;

    void setChanged(std::function<void()> changed) { m_changed = std::move(changed); }

private:
    struct Panel {
        ButtonWindows windows;
        std::vector<PlacedWindow> places;
        std::set<AccessibleRef> lists; ///< contain the buttons, or did before

        bool operator==(const Panel&) const = default;
    };
    struct Program {
        QString name; ///< on the bus; empty until found
        bool isStale = true;
        Seconds due = 0.0;     ///< not read before this time
        Seconds spacing = 0.0; ///< delay before it may be read again
        int failures = 0;      ///< read one at a time
        int looks = 0;         ///< further readings for windows without a button
        AccessibleRoles roles;
        std::map<xcb_window_t, Panel> panels;
    };
    using Programs = std::map<std::int32_t, Program>;

    void step();
    void begin(std::int32_t pid);
    void connectBus(std::int32_t pid);
    void find(std::int32_t pid);
    void walk(std::int32_t pid);
    void read(std::int32_t pid, PanelWalk::Result result);
    /// Returns true if a button has moved.
    bool update(std::int32_t pid, Program& program, PanelWalk::Result result);
    static Panel match(std::vector<PanelButton> buttons, const std::vector<ButtonWindow>& windows,
                       const Panel& before);
    void failed(std::int32_t pid);
    void endTurn();
    void moved(const QString& application);
    void lost();
    void watchLists();
    std::vector<ButtonWindow> windows() const;
    std::vector<DockWindow> panelsOf(std::int32_t pid) const;

    RunLoop& m_runLoop;
    x11::WindowTracker& m_tracker;
    ApplicationRegistry& m_registry;
    AccessibleBus m_bus;
    std::function<void()> m_changed;
    Programs m_programs;
    std::unique_ptr<PanelWalk> m_walk;
    bool m_isBusy = false;
    std::uint64_t m_turn = 0;  ///< incremented by each, to drop late answers
    const char m_deadline = 0; ///< for the run loop, as is m_wake
    const char m_wake = 0;
};

} // namespace lumbrix::platform
