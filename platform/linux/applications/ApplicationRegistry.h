// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Groups the managed windows into applications, each with one representative process.
#pragma once

#include <QtCore/QHash>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/Workspace.h"
#include "platform/linux/applications/ApplicationGroup.h"
#include "platform/linux/applications/ApplicationIdentity.h"
#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform
{

/// A snapshot of one application.
struct Application {
    RunningApplication running;
    bool isRegular = false; ///< has a window that task bars show
    bool isHidden = false;
    std::vector<xcb_window_t> windows; ///< in the order they appeared
};

/// Any thread; the listener's part on the event thread. An application exists from its first window
/// to its last. Its process id is that of its first window, or a made-up one (from 0x40000000) if
/// the window has none or another application already uses it. This program and the dock are
/// applications without windows.
class ApplicationRegistry final : public x11::WindowListener
{
public:
    struct Own {
        std::int32_t pid = 0;
        QString bundleIdentifier;
    };
    /// Called while the registry is locked, in the order of events; must only forward the event.
    using Sink = std::function<void(WorkspaceNotification, std::int32_t pid)>;
    using Clock = std::function<double()>;

    ApplicationRegistry(x11::WindowTracker& tracker, DesktopEntries& entries, ProcessReader reader,
                        Own own, Clock clock);

    /// Before the event thread starts.
    void setSink(Sink sink);
    /// Sets the dock program's process; 0 = none runs.
    void setDock(std::int32_t pid);
    /// Sets the process that is used instead of the dock program while none runs; 0 = none.
    void setDockStandIn(std::int32_t pid);
    /// The process of the dock program or its stand-in.
    std::int32_t dockPid() const;
    const Own& own() const { return m_own; }

    /// 0 if the owner is not known. Also works for windows that the registry has not seen yet.
    std::int32_t ownerPidOf(const x11::TrackedWindow& window);
    /// The application of the window, by the same word; null for one that belongs to none.
    std::optional<RunningApplication> ownerOf(const x11::TrackedWindow& window);
    std::vector<Application> applications();
    std::optional<Application> application(std::int32_t pid);
    /// The running application of a desktop entry, even if its windows were grouped by another
    /// entry of the same program. Null if it does not run.
    std::optional<Application> applicationForDesktopFile(const QString& path);

    /// The windows were requested to become iconic, together.
    void markHidden(std::int32_t pid, const std::vector<xcb_window_t>& windows);
    /// Returns the windows given to markHidden() that are still iconic, and forgets them.
    std::vector<xcb_window_t> takeHidden(std::int32_t pid);

    void windowAdded(const x11::TrackedWindowPtr& window) override;
    void windowChanged(const x11::TrackedWindowPtr& before,
                       const x11::TrackedWindowPtr& after) override;
    void windowRemoved(const x11::TrackedWindowPtr& last) override;
    void activeWindowChanged(xcb_window_t window) override;
    void currentDesktopChanged(int desktop) override;

private:
    using Group = ApplicationGroup;

    ApplicationIdentity identify(const x11::TrackedWindow& window);

    // All with m_mutex held.
    Group& insert(const x11::TrackedWindow& window, const ApplicationIdentity& identity);
    void remove(xcb_window_t id);
    void changeDock(std::int32_t pid);
    void meetAll();
    /// Adds the window to its application; returns its owner's process id.
    std::int32_t meet(const x11::TrackedWindow& window);
    Group* groupOf(xcb_window_t id);
    Group* groupWithPid(std::int32_t pid);
    bool isPidFree(std::int32_t pid) const;
    std::int32_t pidFor(const x11::TrackedWindow& window);
    Application snapshot(const Group& group) const;
    std::optional<Application> dockApplication() const;
    void tell(WorkspaceNotification notification, std::int32_t pid);

    x11::WindowTracker& m_tracker;
    DesktopEntries& m_entries;
    const ProcessReader m_reader;
    const Own m_own;
    const Clock m_clock;
    Sink m_sink;

    mutable std::mutex m_mutex;
    std::vector<std::unique_ptr<Group>> m_groups; ///< this program first, then oldest first
    QHash<quint32, Group*> m_groupOfWindow;
    std::int32_t m_dockPid = 0; ///< the effective one of the next two
    std::int32_t m_runningDock = 0;
    std::int32_t m_dockStandIn = 0;
    std::int32_t m_nextSyntheticPid = 0x40000000;
    std::int32_t m_activePid = 0;
};

} // namespace lumbrix::platform
