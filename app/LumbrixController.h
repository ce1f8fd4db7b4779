// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The application controller: brings the program up in a fixed order, applies the settings, and
// keeps an observer on the Dock.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <memory>
#include <vector>

#include "app/Alert.h"
#include "app/DesktopPalette.h"
#include "app/SamplePreview.h"
#include "app/preferences/PreferencesHost.h"
#include "engine/HoverDelays.h"
#include "engine/SWObserver.h"
#include "platform/RunLoop.h"

namespace lumbrix
{

class AboutWindow;
class DockIcon;
class StatusItem;
class StatusMenu;
struct SGHotKey;

/// Main thread.
class LumbrixController final : public QObject, public PreferencesHost, public HoverDelays
{
    Q_OBJECT

public:
    LumbrixController();
    ~LumbrixController() override;

    /// First part of the start: access to other applications, then the engine, with the hot-key
    /// centre, and its settings. False when there is no access and the user does not want to give
    /// it, or did not in time; the program then has nothing to do.
    bool awakeFromNib();
    /// Second part: first-run values, the Dock, and the settings again, now with those values.
    void applicationDidFinishLaunching();
    /// The user has started the program that runs already. Whether another window should be made
    /// for it, which is never so.
    bool applicationShouldHandleReopen();
    /// Takes everything off the screen and lets go of the Dock.
    void applicationWillTerminate();

    // What the preferences ask.
    void updateState(const QString& senderTitle = {}) override;
    void updateWindowSize() override;
    void updateDistanceFromDock() override;
    void updateDockBadgeSize() override;
    void updateColorOfWindowBadges(const QColor& color) override;
    void setVersionLabel(QLabel* label) override;
    void setDelayLabel(QLabel* label) override;
    void setExitDelayLabel(QLabel* label) override;
    SGHotKeyCenter& hotKeyCenter() override { return *m_hotKeyCenter; }

    /// Flips whether previews are shown at all.
    void toggleDisabled();
    /// Opens the preferences window in front of everything.
    void showPreferences();
    void showAbout();
    void quitApp();

    /// Every alert of the program is made here. A suppression text without the checkbox is ignored;
    /// the checkbox without a text has the usual one.
    static std::unique_ptr<Alert> createAlert(const QString& title, const QString& text,
                                              const QStringList& buttons,
                                              bool suppressionEnabled = false,
                                              const QString& suppressionText = {});

    /// Observes the Dock that runs now, unless it is observed already; nothing when none runs.
    void addDockObserver();

    float displayDelay() const override { return m_displayDelay; }
    std::int32_t dontDelayIfOpen() const override { return m_dontDelayIfOpen; }
    const SWObserver* dockObserver() const { return m_dockObserver.get(); }
    const SamplePreview& samplePreview() const { return m_samplePreview; }
    StatusItem* statusItem() const { return m_statusItem.get(); } ///< null while it is hidden

private:
    // At the start.
    /// Whether other applications can be asked; the user was, if not.
    bool checkAXAPI();
    /// Has the user decide whether access is to be given.
    static bool wantsAPI();
    void firstRunCheck();
    /// Once for each user.
    void tellOfUnseenWindows();
    void showDockIcon();

    void retrieveDefaults(const QString& senderTitle = {});
    void badgeDockIconsChanged();
    /// Puts the stored hot keys in the place of those that were registered before.
    void registerHotKeys();
    void updateDelayLabels();
    void displayStatusIcon();
    void enforceRunAtLogin();
    static bool showsIconInDock();
    /// Has the next start know whether there is to be an icon.
    static void enforceDockIcon();
    void showDockIconAlertDidEnd(int returnCode);
    /// On the preferences window; not at all while that is closed.
    static void beginSheet(const QString& title, const QString& text, const QStringList& buttons,
                           std::function<void(int)> didEnd = {});

    const std::shared_ptr<SGHotKeyCenter> m_hotKeyCenter;
    std::vector<std::shared_ptr<SGHotKey>> m_hotKeys;
    float m_displayDelay = 0;
    std::int32_t m_dontDelayIfOpen = 0;
    std::int32_t m_hideMenuIcon = 0;
    std::int32_t m_monoChrome = 0;
    bool m_isQuitting = false;
    const DesktopPalette m_palette;
    std::unique_ptr<StatusItem> m_statusItem;
    StatusMenu* m_statusMenu = nullptr; ///< the status item's
    std::unique_ptr<AboutWindow> m_aboutWindow;
    std::unique_ptr<DockIcon> m_dockIcon; ///< null unless the Dock shows our icon
    QPointer<QLabel> m_versionLabel;
    QPointer<QLabel> m_delayLabel;
    QPointer<QLabel> m_exitDelayLabel;
    SamplePreview m_samplePreview;
    std::unique_ptr<SWObserver> m_dockObserver;
    platform::TimerPtr m_dockObserverTimer;
};

} // namespace lumbrix
