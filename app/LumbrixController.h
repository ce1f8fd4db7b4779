// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The application controller: starts the program's parts in a fixed order, applies the settings,
// and keeps an observer on the Dock.
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
    /// centre, and its settings. False when there is no access and the user refused it, or did not
    /// grant it in time; the program should then end.
    bool awakeFromNib();
    /// Second part of the start: stores the first-run values, observes the Dock, and applies the
    /// settings again, now with those values.
    void applicationDidFinishLaunching();
    /// The user has started the program again while it runs. Returns whether a new window should be
    /// made for that: always false.
    bool applicationShouldHandleReopen();
    /// Removes everything from the screen and stops observing the Dock.
    void applicationWillTerminate();

    // PreferencesHost.
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

    /// Makes every alert of the program. A suppression text without the checkbox is ignored; a
    /// checkbox without a text gets the default label.
    static std::unique_ptr<Alert> createAlert(const QString& title, const QString& text,
                                              const QStringList& buttons,
                                              bool suppressionEnabled = false,
                                              const QString& suppressionText = {});

    /// Observes the running Dock, unless it is already observed; does nothing when no Dock runs.
    void addDockObserver();

    float displayDelay() const override { return m_displayDelay; }
    std::int32_t dontDelayIfOpen() const override { return m_dontDelayIfOpen; }
    const SWObserver* dockObserver() const { return m_dockObserver.get(); }
    const SamplePreview& samplePreview() const { return m_samplePreview; }
    StatusItem* statusItem() const { return m_statusItem.get(); } ///< null while it is hidden

private:
    // Parts of the start.
    /// Whether the program has access to other applications; if not, asks the user to grant it and
    /// waits for that.
    bool checkAXAPI();
    /// Asks the user to grant access.
    static bool wantsAPI();
    void firstRunCheck();
    static QString welcomeText();
    /// Shown once per user.
    void tellOfUnseenWindows();
    void showDockIcon();

    void retrieveDefaults(const QString& senderTitle = {});
    void badgeDockIconsChanged();
    /// Replaces the registered hot keys with the stored ones.
    void registerHotKeys();
    void updateDelayLabels();
    void displayStatusIcon();
    void enforceRunAtLogin();
    static bool showsIconInDock();
    /// Records for the next start whether to show an icon.
    static void enforceDockIcon();
    void showDockIconAlertDidEnd(int returnCode);
    /// As a sheet of the preferences window; does nothing while that is closed.
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
    StatusMenu* m_statusMenu = nullptr; ///< owned by the status item
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
