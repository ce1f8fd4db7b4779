// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The preview engine: the one coordinator. It owns the inventory of windows, the previews on
// screen, their cache, the timers and the settings mirror, and hands each event to the class that
// deals with it.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

#include "engine/Companions.h"
#include "engine/Dismissal.h"
#include "engine/EngineContext.h"
#include "engine/FilterTable.h"
#include "engine/HoverDelays.h"
#include "engine/HoverDispatch.h"
#include "engine/HoveredItem.h"
#include "engine/KeyboardRow.h"
#include "engine/NotificationIntake.h"
#include "engine/PreviewRow.h"
#include "engine/PreviewUpdater.h"
#include "engine/RequestedRow.h"
#include "engine/RowTimers.h"
#include "engine/SWObserver.h"
#include "engine/SwitcherWatch.h"
#include "model/EngineSettings.h"
#include "model/WindowInventory.h"
#include "platform/Accessibility.h"
#include "platform/Desktop.h"
#include "platform/MainThreadGuard.h"
#include "platform/Privacy.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "preview/PreviewHost.h"

namespace lumbrix
{

/// Main thread unless said otherwise.
class LXHandler final : public PreviewHost,
                        public InventoryObserver,
                        public WindowCounts,
                        public platform::NotificationContext
{
public:
    /// The one engine, created and set up on first use. Any thread. A call from inside setUp() gets
    /// the instance that is being set up. Aborts the program if no companions are installed.
    static LXHandler& sharedHandler();
    /// Destroys the engine. Every thread that it started must have ended before.
    static void releaseSharedHandler();

    /// What the shared handler is created with. Must be called before its first use. The ports must
    /// outlive it.
    static void installCompanions(const platform::Desktop& ports, const Companions& companions);

    LXHandler(const platform::Desktop& ports, const Companions& companions);
    ~LXHandler() override;
    void setUp();

    EngineSettings& settings() { return m_settings; }
    const EngineSettings& settings() const override { return m_settings; }
    const Companions& companions() const { return m_companions; }
    /// The source of the hover delay; not owned, may be null.
    void setApplicationDelegate(const HoverDelays* delegate) { m_switcher.setDelays(delegate); }
    QVariantMap filters() const { return m_filters.filters(); }
    /// Takes effect at once: previews of windows that the new levels exclude are removed, and
    /// windows that they include are searched for.
    void setFilters(const QVariantMap& filters);

    const platform::Privacy::Choices& privateChoices() const { return m_privateChoices; }
    /// In force at once: a row that is up goes, with every picture.
    void setPrivateChoices(const platform::Privacy::Choices& choices);

    PreviewRow& row() { return m_row; }
    HoveredItem& hovered() { return m_hovered; }
    NotificationIntake& intake() { return m_intake; }
    const std::vector<ScreenyViewPtr>& screenyViews() const override { return m_row.previews(); }
    int indexOfScreenyView(const ScreenyView& preview) const override
    {
        return m_row.indexOf(preview);
    }
    bool doSpacesTell() const override { return m_row.isOnOtherSpaces(); }
    bool isShowingPreviews() const override { return m_row.isShowing(); } ///< any thread
    SWElementPtr currentDockElement() const { return m_hovered.element(); }

    // Hovering.
    void iconHovered(const SWElementPtr& element) { m_hover.iconHovered(element); }
    void updateWindows(const SWElementPtr& element) { m_updater.updateWindows(element); }
    /// Updates the previews on screen after a change of the settings. If previews are now turned
    /// off, removes them and cancels those that are pending.
    void settingsDidChange();

    // How it ends.
    void mouseEntered(ScreenyView& preview) override { m_row.selection().mouseEntered(preview); }
    void mouseExited() override { m_dismissal.mouseExited(); }
    void wheelTurned(ScreenyView& preview, int steps) override
    {
        m_row.selection().turn(preview, steps);
    }
    ScreenyView& meantBy(ScreenyView& clicked) override;
    void showMore() override { m_updater.showMore(); }
    /// The user wants nothing of what is shown or about to be.
    void escape() { m_dismissal.endAtOnce("Escape was pressed"); }
    void toggleKeyboardRow() { m_keyboardRow.toggle(); }
    void menuOpened() { m_dismissal.menuOpened(); }
    void removeAllScreenViews() override { m_dismissal.removeAllScreenViews(toldTo); }
    void removeAllScreenViewsNOW() { m_dismissal.removeAllScreenViewsNOW(toldTo); }
    void removeAllScreenViewsLeavingTimersAlone()
    {
        m_dismissal.removeAllScreenViewsLeavingTimersAlone(toldTo);
    }
    void closeAllWindows() { m_dismissal.closeAllWindows(); }
    bool shouldInterceptClick(bool perform, bool isTabExit)
    {
        return m_dismissal.shouldInterceptClick(perform, isTabExit);
    }

    // Settings of the Dock that has the item; for null, of the first Dock.
    static bool isDockMagnificationEnabled(platform::DockPreferences& preferences,
                                           const SWElementPtr& item = nullptr)
    {
        return StripArranger::isDockMagnificationEnabled(preferences, item);
    }
    static bool isDockAutoHidingEnabled(platform::DockPreferences& preferences,
                                        const SWElementPtr& item = nullptr)
    {
        return StripArranger::isDockAutoHidingEnabled(preferences, item);
    }
    /// Places one sample preview beside the Dock's first item and brings it to the front.
    void arrangeWindow(ScreenyView& preview) { m_row.arranger().arrangeWindow(preview); }

    // Inventory, observers and cache.
    WindowInventory& inventory() { return m_inventory; }
    int countForRunningApp(const platform::RunningApplication& application) const override
    {
        return m_inventory.countForRunningApp(application);
    }
    void addObserverForApp(std::int32_t pid);
    bool isObserving(std::int32_t pid) const;
    ScreenyViewPtr createScreenyView() { return m_row.cache().createScreenyView(); }
    void addToCache(const ScreenyViewPtr& preview) override { m_row.cache().addToCache(preview); }
    void clearCache() { m_row.cache().clearCache(); }

    HotKeyCenter& hotKeyCenter() override { return *m_companions.hotKeyCenter; }
    PlayerControls& playerControls() override { return *m_companions.playerControls; }

private:
    /// Why a row goes when another part of the program ends it, for the log.
    static constexpr const char* toldTo = "a click, a key, a setting or a full screen ends it";
    void windowsChanged() override; ///< any thread
    void awayChanged();
    /// Ends what is shown, and drops whatever was ever painted of a window.
    void forgetPictures();
    void appLaunched(std::int32_t pid);
    void appTerminated(std::int32_t pid);
    void appActivated();
    void windowScannerThread(const platform::Thread& self);

    const platform::Desktop& m_ports;
    EngineSettings m_settings;
    const Companions m_companions;
    FilterTable m_filters;
    platform::Privacy::Choices m_privateChoices;
    WindowInventory m_inventory;
    std::atomic<bool> m_isBadgingRequested{false}; ///< posted, not done yet
    std::vector<std::unique_ptr<SWObserver>> m_observers;
    std::vector<std::unique_ptr<platform::WorkspaceSubscription>> m_subscriptions;

    // Each part uses only those above it.
    HoveredItem m_hovered;
    RowTimers m_timers;
    PreviewRow m_row;
    const EngineContext m_context;
    Dismissal m_dismissal;
    PreviewUpdater m_updater;
    HoverDispatch m_hover;
    SwitcherWatch m_switcher;
    RequestedRow m_requestedRow;
    KeyboardRow m_keyboardRow;
    NotificationIntake m_intake;
    const platform::MainThreadGuard m_guard;
};

/// The callback of every observer: hands a notification of the Dock or of an application to the
/// shared handler. Main thread. `context` is the controller (a HoverDelays) for the Dock's
/// notifications.
void handleAXNotification(platform::AXObserver& observer, const platform::ElementRef& element,
                          const QString& notification, platform::NotificationContext* context);

} // namespace lumbrix
