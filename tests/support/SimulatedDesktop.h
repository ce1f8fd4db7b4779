// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A whole desktop in memory: an adapter of every port for the program, and the controls by which a
// test moves the pointer, opens windows and kills the Dock.
#pragma once

#include <functional>

#include "platform/Desktop.h"
#include "tests/support/SimulatedAppleEvents.h"
#include "tests/support/SimulatedCalendar.h"
#include "tests/support/SimulatedKeyboard.h"
#include "tests/support/SimulatedPorts.h"
#include "tests/support/SimulatedSession.h"
#include "tests/support/SimulatedWorkspace.h"

namespace lumbrix::test
{

/// The main screen is 1440 × 900 with the Dock at the bottom; Finder's place is empty, the Trash
/// and a separator are there. Lumbrix itself runs in the background. The run loop outlives it.
///
/// The controls may be called from any thread. What they cause reaches the program as it would on a
/// real desktop: through its observers, on the main thread, in the next pass of the run loop.
class SimulatedDesktop
{
public:
    explicit SimulatedDesktop(platform::RunLoop& runLoop);

    /// The whole set, to install.
    platform::Desktop ports() { return ports(m_accessibility, m_windowServer); }
    /// With others in the place of two of them.
    platform::Desktop ports(platform::Accessibility& accessibility,
                            platform::WindowServer& windowServer);

    // For the program.
    SimulatedAccessibility& accessibility() { return m_accessibility; }
    SimulatedWindowServer& windowServer() { return m_windowServer; }
    SimulatedInputState& inputState() { return m_inputState; }
    SimulatedWorkspace& workspace() { return m_workspace; }
    SimulatedUserDefaults& userDefaults() { return m_userDefaults; }
    SimulatedDockPreferences& dockPreferences() { return m_dockPreferences; }
    SimulatedEventTaps& eventTaps() { return m_eventTaps; }
    SimulatedKeyboardLayout& keyboardLayout() { return m_keyboardLayout; }
    SimulatedLoginItems& loginItems() { return m_loginItems; }
    SimulatedBundle& applicationBundle() { return m_applicationBundle; }
    SimulatedStatusBar& statusBar() { return m_statusBar; }
    SimulatedAppleEvents& appleEvents() { return m_appleEvents; }
    SimulatedCalendarStore& calendarStore() { return m_calendarStore; }
    SimulatedWallClock& wallClock() { return m_wallClock; }
    SimulatedPreviewRequests& previewRequests() { return m_previewRequests; }
    SimulatedPrivacy& privacy() { return m_privacy; }
    SimulatedLook& look() { return m_look; }

    /// The rest, under the lock: screens, whether accessibility is enabled ...
    template <class Use> auto with(Use use)
    {
        const std::lock_guard lock(m_state.mutex);
        return use(m_state);
    }

    // Applications.
    Pid addApplication(SimulatedApplication application)
    {
        return m_state.locked()->launch(std::move(application));
    }
    void quitApplication(Pid pid) { m_state.locked()->quit(pid); }
    void activateApplication(Pid pid) { m_state.locked()->activate(pid); }
    void changeApplication(Pid pid, const std::function<void(SimulatedApplication&)>& change)
    {
        change(*m_state.locked()->application(pid));
    }
    SimulatedApplication application(Pid pid); ///< pid 0 when it does not run
    Pid activeApplication() { return m_state.locked()->activePid; }
    Pid ownPid() { return m_state.locked()->ownPid; }

    // Windows; a new one is in front.
    WindowID addWindow(Pid pid, SimulatedWindow window)
    {
        return m_state.locked()->open(pid, std::move(window));
    }
    void closeWindow(WindowID window) { m_state.locked()->close(window); }
    /// To another application.
    void giveWindow(WindowID window, Pid pid) { m_state.locked()->give(window, pid); }
    void minimizeWindow(WindowID window, bool minimized = true)
    {
        m_state.locked()->setMinimized(window, minimized);
    }
    void changeWindow(WindowID window, const std::function<void(SimulatedWindow&)>& change)
    {
        const auto state = m_state.locked();
        change(*state->window(window));
        state->tellPictureWatchers(window);
    }
    std::optional<SimulatedWindow> window(WindowID window);                 ///< null when closed
    std::vector<WindowID> stacking() { return m_state.locked()->stacking; } ///< front to back
    platform::ElementRef windowElement(WindowID window);
    int captures(WindowID window) { return m_state.locked()->window(window)->captures; }
    auto drawings(WindowID window) { return m_state.locked()->window(window)->drawings; }
    void showSpace(int space) { m_state.locked()->showSpace(space); }

    // The Dock.
    void addDockItem(SimulatedDockItem item) { m_state.locked()->addDockItem(std::move(item)); }
    void setDockEdge(std::optional<platform::DockEdge> edge); ///< null: names what is none
    void setDockFlags(std::optional<int> magnification, std::optional<int> autohide);
    void killDock();
    Pid startDock(); ///< with a new pid and new elements
    Pid dockPid() { return m_state.locked()->dockPid; }
    /// First item of that title; null elements and rectangles when there is none.
    platform::ElementRef dockItem(const QString& title);
    QRectF dockItemFrame(const QString& title); ///< accessibility coordinates
    void openDockMenu();
    /// 0 = normal.
    void setSystemUIMode(std::uint32_t mode);
    /// Says that the Dock's items are others, elsewhere or hidden; it does not by itself.
    void tellDockItemsChanged() { tell(platform::WorkspaceNotification::DockItemsDidChange); }
    void tellScreensChanged() { tell(platform::WorkspaceNotification::ScreensDidChange); }

    // The Command-Tab switcher.
    void openSwitcher(std::vector<SimulatedSwitcherEntry> entries, std::size_t selection = 0);
    /// `tells`: whether the Dock says so; it does not when the mouse made the selection.
    void selectInSwitcher(std::size_t selection, bool tells = true);
    void closeSwitcher() { m_state.locked()->switcher.reset(); }

    // Input; screen coordinates, origin at the bottom left.
    void movePointer(QPointF point);
    void hoverDockItem(const QString& title);
    void leaveDock(); ///< to the middle of the main screen
    void setButtons(std::uint32_t buttons) { m_state.locked()->buttons = buttons; }
    void setModifiers(std::uint32_t flags) { m_state.locked()->modifiers = flags; }

private:
    void tell(platform::WorkspaceNotification what) { m_state.locked()->notify(what, 0); }

    SimulatedState m_state;
    SimulatedAccessibility m_accessibility{m_state};
    SimulatedWindowServer m_windowServer{m_state};
    SimulatedInputState m_inputState{m_state};
    SimulatedWorkspace m_workspace{m_state};
    SimulatedUserDefaults m_userDefaults;
    SimulatedDockPreferences m_dockPreferences{m_state};
    SimulatedEventTaps m_eventTaps;
    SimulatedKeyboardLayout m_keyboardLayout;
    SimulatedLoginItems m_loginItems;
    SimulatedBundle m_applicationBundle;
    SimulatedStatusBar m_statusBar;
    SimulatedAppleEvents m_appleEvents{m_state.runLoop};
    SimulatedCalendarStore m_calendarStore{m_state.runLoop};
    SimulatedWallClock m_wallClock{m_state.runLoop};
    SimulatedPreviewRequests m_previewRequests;
    SimulatedPrivacy m_privacy{m_state};
    SimulatedLook m_look;
};

} // namespace lumbrix::test
