// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where panels have their window buttons, by what they tell assistive technology, for panels from
// whose windows' properties it cannot be learned.
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

/// Main thread. Reads when it is told to and when a panel tells that its buttons moved, one panel
/// at a time and a few times a second at most; never when a button is hovered. What a panel that
/// does not answer has told before goes on to hold. Connected only while panels are wanted that
/// are on the bus.
class AccessibleButtons
{
public:
    AccessibleButtons(RunLoop& runLoop, x11::WindowTracker& tracker, ApplicationRegistry& registry,
                      const QDBusConnection& session);
    ~AccessibleButtons();
    AccessibleButtons(const AccessibleButtons&) = delete;
    AccessibleButtons& operator=(const AccessibleButtons&) = delete;

    /// The processes whose panels are read from now on; the others are forgotten.
    void want(const std::set<std::int32_t>& pids);
    /// Windows or panels have changed: reads again, soon.
    void refresh();
    /// The windows with a button on this dock window; null as long as it has shown none, and when
    /// it is not wanted.
    const std::vector<PlacedWindow>* places(xcb_window_t panel) const;

    void setChanged(std::function<void()> changed) { m_changed = std::move(changed); }

private:
    struct Panel {
        ButtonWindows windows;
        std::vector<PlacedWindow> places;
        std::set<AccessibleRef> lists; ///< hold the buttons, or have held them

        bool operator==(const Panel&) const = default;
    };
    struct Program {
        QString name; ///< on the bus; empty until found
        bool isStale = true;
        Seconds due = 0.0;     ///< not to be read before
        Seconds spacing = 0.0; ///< until it may be read again
        int failures = 0;      ///< one after the other
        int looks = 0;         ///< that are left for windows without a button
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
    /// True when something is shown elsewhere than before.
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
    std::uint64_t m_turn = 0;  ///< grows with each, to drop late answers
    const char m_deadline = 0; ///< for the run loop, as is m_wake
    const char m_wake = 0;
};

} // namespace lumbrix::platform
