// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The set of ports that the program runs on. main() or a test installs one before anything else.
#pragma once

namespace lumbrix::platform
{

class Accessibility;
class AppleEvents;
class ApplicationBundle;
class CalendarStore;
class DesktopLook;
class DockPreferences;
class EventTaps;
class InputState;
class KeyboardLayout;
class LoginItems;
class PreviewRequests;
class Privacy;
class RunLoop;
class StatusBar;
class UserDefaults;
class WallClock;
class WindowServer;
class Workspace;

/// References only; the one that installs it keeps the adapters alive.
struct Desktop {
    RunLoop& runLoop;
    Accessibility& accessibility;
    WindowServer& windowServer;
    InputState& inputState;
    Workspace& workspace;
    UserDefaults& userDefaults;
    DockPreferences& dockPreferences;
    EventTaps& eventTaps;
    KeyboardLayout& keyboardLayout;
    LoginItems& loginItems;
    ApplicationBundle& applicationBundle;
    StatusBar& statusBar;
    AppleEvents& appleEvents;
    CalendarStore& calendarStore;
    WallClock& wallClock;
    PreviewRequests& previewRequests;
    Privacy& privacy;
    DesktopLook& desktopLook;
};

/// The installed desktop, for app/ alone: what is below is given its ports. Any thread; calling it
/// with none installed ends the program.
const Desktop& desktop();

/// Installs a desktop for its own lifetime; at most one at a time. Main thread, created before and
/// destroyed after every thread that asks for desktop().
class DesktopScope
{
public:
    explicit DesktopScope(const Desktop& desktop);
    ~DesktopScope();
    DesktopScope(const DesktopScope&) = delete;
    DesktopScope& operator=(const DesktopScope&) = delete;
};

} // namespace lumbrix::platform
