// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The application controller: brings the program up in a fixed order, applies the settings, and
// keeps an observer on the Dock.
#pragma once

#include <QtCore/QObject>

#include <memory>
#include <vector>

#include "engine/HoverDelays.h"
#include "engine/SWObserver.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"

namespace lumbrix
{

class SGHotKeyCenter;
struct SGHotKey;

/// Main thread.
class LumbrixController final : public QObject, public HoverDelays
{
    Q_OBJECT

public:
    LumbrixController();
    ~LumbrixController() override;

    /// First part of the start: the engine, with the hot-key centre, and its settings. False when
    /// the desktop gives no access to other applications; the program then has nothing to do.
    bool awakeFromNib();
    /// Second part: first-run values, the Dock, and the settings again, now with those values.
    void applicationDidFinishLaunching();
    /// Takes everything off the screen and lets go of the Dock.
    void applicationWillTerminate();

    /// Applies all settings as a whole.
    void updateState();
    /// Flips whether previews are shown at all.
    void toggleDisabled();
    /// Observes the Dock that runs now, unless it is observed already; nothing when none runs.
    void addDockObserver();

    float displayDelay() const override { return m_displayDelay; }
    std::int32_t dontDelayIfOpen() const override { return m_dontDelayIfOpen; }
    SGHotKeyCenter& hotKeyCenter() { return *m_hotKeyCenter; }
    const SWObserver* dockObserver() const { return m_dockObserver.get(); }

private:
    void retrieveDefaults();
    /// Puts the stored hot keys in the place of those that were registered before.
    void registerHotKeys();

    const std::shared_ptr<SGHotKeyCenter> m_hotKeyCenter;
    std::vector<std::shared_ptr<SGHotKey>> m_hotKeys;
    float m_displayDelay = 0;
    std::int32_t m_dontDelayIfOpen = 0;
    std::unique_ptr<SWObserver> m_dockObserver;
    platform::TimerPtr m_dockObserverTimer;
    std::unique_ptr<platform::WorkspaceSubscription> m_launches;
};

} // namespace lumbrix
