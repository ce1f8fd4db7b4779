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

/// References only; whoever installs it keeps the adapters alive.
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

/// The installed desktop. Only for app/; code below it gets its ports passed in. Any thread; aborts
/// the program if none is installed.
const Desktop& desktop();

/// Installs a desktop for its own lifetime; at most one at a time. Main thread; must be created
/// before and destroyed after every thread that calls desktop().
class DesktopScope
{
public:
    explicit DesktopScope(const Desktop& desktop);
    ~DesktopScope();
    DesktopScope(const DesktopScope&) = delete;
    DesktopScope& operator=(const DesktopScope&) = delete;
};

} // namespace lumbrix::platform
