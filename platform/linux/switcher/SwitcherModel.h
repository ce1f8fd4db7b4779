// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The window manager's switcher: whether it is open, and which window is selected in it.
#pragma once

#include <QtDBus/QDBusConnection>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/MainThreadGuard.h"
#include "platform/RunLoop.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/switcher/RecentWindows.h"
#include "platform/linux/switcher/SwitcherReader.h"
#include "platform/linux/switcher/SwitcherSteps.h"
#include "platform/linux/switcher/SwitcherTitle.h"
#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform
{

/// The listener's part runs on the event thread, queries on any thread, the rest on the main
/// thread. Window managers' switchers select windows; this reports the application of the selected
/// window. Keys are only watched while a switcher is open, except if the selection can only be
/// found by counting keys.
class SwitcherModel final : public x11::WindowListener
{
public:
    struct Selection {
        std::int32_t pid = 0; ///< of the application; 0: the window has none, or none is selected
        xcb_window_t window = XCB_NONE;
        QRect list; ///< the switcher's frame, root pixels
    };
    using HearKeys = std::function<void(x11::KeyHearing)>;

    /// `session` is used to find the accessibility bus; without it titles are not read. `canCount`
    /// returns whether a switcher whose selection is found by counting goes through the windows in
    /// order and does not cover previews; called on the main thread, whenever the window manager
    /// shows something.
    SwitcherModel(RunLoop& runLoop, x11::WindowTracker& tracker, ApplicationRegistry& registry,
                  const QDBusConnection* session, HearKeys hearKeys,
                  std::function<bool()> canCount);
    ~SwitcherModel() override;

    /// Must be set before the event thread starts. Called on the main thread when another
    /// application is selected, or none because the user cancelled; not when the switcher just
    /// closes.
    void setSelectionChanged(std::function<void()> call) { m_selectionChanged = std::move(call); }

    /// Null while no switcher is open.
    std::optional<Selection> selection() const;
    /// Whether the window manager's switcher can be read; false while no window manager runs.
    bool canRead() const;
    /// The user picked this window while the switcher is open. It is raised again when the switcher
    /// closes and raises the window selected in it.
    void picked(xcb_window_t window);

    void managerChanged(const x11::Manager& manager) override;
    void windowAdded(const x11::TrackedWindowPtr& window) override;
    void activeWindowChanged(xcb_window_t window) override;
    void compositorChanged(bool isRunning) override;
    void keyPressed(xcb_keysym_t key, bool withShift) override;
    void keyRepeated(xcb_keysym_t key) override;
    void pointerMoved(QPoint position, xcb_window_t childOfRoot) override;
    void buttonPressed(int button, QPoint position) override;

private:
    using Windows = std::vector<xcb_window_t>;

    void post(std::function<void()> action);
    void takeManager(const x11::Manager& manager);
    void takeKey(xcb_keysym_t key, bool withShift);
    void hearKeys();
    void count(const QRect& list);
    void moveUnseen();
    void loseSelection();
    void lookAfter(Seconds delay);
    void look();
    void closed();
    void choose(const SwitcherSight& sight, const QString& title);
    void select(xcb_window_t window, const QRect& list);
    std::int32_t ownerOf(xcb_window_t window) const;

    RunLoop& m_runLoop;
    x11::WindowTracker& m_tracker;
    ApplicationRegistry& m_registry;
    const HearKeys m_hearKeys;
    const std::function<bool()> m_canCount;
    std::function<void()> m_selectionChanged;
    const char m_settling = 0; ///< for the run loop

    xcb_window_t m_underPointer = XCB_NONE; ///< event thread

    // Main thread.
    std::unique_ptr<SwitcherTitle> m_title;
    x11::Manager m_manager;
    x11::KeyHearing m_hearing = x11::KeyHearing::None;
    SwitcherSteps m_counted;
    Windows m_order;                 ///< as of the opening of the switcher
    xcb_window_t m_start = XCB_NONE; ///< active at that time
    RecentWindows m_recent;
    bool m_isUp = false;
    bool m_isCancelled = false;
    int m_steps = 0; ///< keys since the last choice, forwards minus backwards
    QRect m_outline; ///< of the last choice

    mutable std::mutex m_mutex;
    /// Written on the main thread only, which reads it without the lock.
    const SwitcherReader* m_reader = nullptr; // this and what follows guarded by m_mutex
    std::optional<Selection> m_selection;
    xcb_window_t m_picked = XCB_NONE;
    const MainThreadGuard m_guard;
};

} // namespace lumbrix::platform
