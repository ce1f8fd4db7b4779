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
#include "engine/FilterTable.h"
#include "engine/HoverDispatch.h"
#include "engine/PictureLoader.h"
#include "engine/PreviewCache.h"
#include "engine/PreviewUpdater.h"
#include "engine/RequestedRow.h"
#include "engine/SWObserver.h"
#include "engine/StripArranger.h"
#include "model/EngineSettings.h"
#include "model/WindowInventory.h"
#include "platform/Accessibility.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "preview/PreviewHost.h"

namespace lumbrix
{

class HoverDelays;

/// Main thread, except where a method says otherwise.
class LXHandler final : public PreviewHost,
                        public InventoryObserver,
                        public WindowCounts,
                        public platform::NotificationContext
{
public:
    using Application = HoverDispatch::Application;

    /// The one engine, made and set up on first use. Any thread; a call from inside setUp gets the
    /// instance as it stands.
    static LXHandler& sharedHandler();
    /// Ends the engine. Every thread it started must have ended before.
    static void releaseSharedHandler();

    /// The companions that the shared handler is made with; before its first use.
    static void installCompanions(const Companions& companions);

    explicit LXHandler(const Companions& companions);
    ~LXHandler() override;
    void setUp();

    EngineSettings& settings() { return m_settings; }
    const EngineSettings& settings() const override { return m_settings; }
    const Companions& companions() const { return m_companions; }
    /// Where the switcher's watch asks for the hover delay; not owned, may be null.
    const HoverDelays* applicationDelegate() const { return m_applicationDelegate; }
    void setApplicationDelegate(const HoverDelays* delegate) { m_applicationDelegate = delegate; }
    QVariantMap filters() const { return m_filters.filters(); }
    /// In force at once: previews of windows that the new levels leave out go, windows that they
    /// let in are looked for.
    void setFilters(const QVariantMap& filters);

    // The previews shown, in strip order.
    const std::vector<ScreenyViewPtr>& screenyViews() const { return m_screenyViews; }
    void setScreenyViews(std::vector<ScreenyViewPtr> previews);
    void appendScreenyView(const ScreenyViewPtr& preview);
    std::vector<ScreenyViewPtr> takeScreenyViews();
    int indexOfScreenyView(const ScreenyView& preview) const override;
    bool isShowingPreviews() const override { return m_isShowing; } ///< any thread

    SWElementPtr currentDockElement() const { return m_currentDockElement; }
    void setCurrentDockElement(const SWElementPtr& element);
    bool shouldInstantShow() const { return m_shouldInstantShow; }
    void setShouldInstantShow(bool on) { m_shouldInstantShow = on; }

    // Hover dispatch.
    void iconHovered(const SWElementPtr& element) { m_hover.iconHovered(element); }
    void minimizedIconHovered(const SWElementPtr& el) { m_hover.minimizedIconHovered(el); }
    void processListIconHovered(const Application& application, const SWElementPtr& element)
    {
        m_hover.processListIconHovered(application, element);
    }
    ScreenyViewPtr appendPreview(const SWElementPtr& window, const Application& app, bool byTab)
    {
        return m_hover.appendPreview(window, app, byTab);
    }
    /// Replaces the running checker by one for this element.
    void startMouseChecker(const SWElementPtr& element);
    void cancelMouseChecker();
    /// Whatever is hovered, and would come up later, does not: after the hover delay, once the
    /// mouse rests, or when a calendar has been read.
    void cancelPendingHover();

    // Dismissal.
    void mouseExited() override;
    void letGoOfRow() { m_dismissal.mouseExited(); } ///< nothing keeps it but the mouse
    /// The mouse is on no item of the Dock any more.
    void dockSelectionEnded();
    void mouseExitedToOtherIcon() { m_dismissal.mouseExitedToOtherIcon(); }
    void mouseExitedToClosedApp() { mouseExitedToOtherIcon(); }
    void menuOpened() { m_dismissal.menuOpened(); }
    void removeAllScreenViews() override { m_dismissal.removeAllScreenViews(); }
    void removeAllScreenViewsNOW() { m_dismissal.removeAllScreenViewsNOW(); }
    void removeAllScreenViewsLeavingTimersAlone();
    void closeAllWindows() { m_dismissal.closeAllWindows(); }
    bool shouldInterceptClick(bool perform, bool isTabExit);
    bool checkIfPreviewsAreHovered(bool includeDockItem);
    bool checkIfDockElementIsHovered(const SWElementPtr& element) const; ///< any thread
    void invalidateExitTimer() { m_dismissal.invalidateExitTimer(); }
    void invalidateTabExitTimer() { m_dismissal.invalidateTabExitTimer(); }
    void invalidateExitDelayTimer() { m_dismissal.invalidateExitDelayTimer(); }
    void armTabExitTimer(platform::Seconds interval, const SWElementPtr& entry);
    void setDelayExit(int checks) { m_dismissal.setDelayExit(checks); }

    RequestedRow& requestedRow() { return m_requestedRow; }

    // Updating.
    void armUpdateTimer(platform::Seconds interval, const SWElementPtr& element);
    PictureLoader& pictureLoader() { return m_pictureLoader; }
    void invalidateUpdateTimer() { m_updater.invalidateUpdateTimer(); }
    void updateWindows(const SWElementPtr& element) { m_updater.updateWindows(element); }
    /// Has the previews that are shown follow the settings, which have changed; with previews
    /// turned off nothing is shown any more, and nothing that is under way comes up.
    void settingsDidChange();

    // Layout.
    // Of the Dock that has the item; for null, of the first one.
    static QString getDockOrientation(const SWElementPtr& item = nullptr)
    {
        return StripArranger::getDockOrientation(item);
    }
    static bool isDockMagnificationEnabled(const SWElementPtr& item = nullptr)
    {
        return StripArranger::isDockMagnificationEnabled(item);
    }
    static bool isDockAutoHidingEnabled(const SWElementPtr& item = nullptr)
    {
        return StripArranger::isDockAutoHidingEnabled(item);
    }
    void arrangeWindows(const SWElementPtr& item, bool animate);
    void arrangeWindowsBottom(const SWElementPtr& item, bool animate);
    void arrangeWindow(ScreenyView& preview) { m_arranger.arrangeWindow(preview); }

    // Inventory, observers and cache.
    WindowInventory& inventory() { return m_inventory; }
    int countForRunningApp(const platform::RunningApplication& application) const override
    {
        return m_inventory.countForRunningApp(application);
    }
    void addObserverForApp(std::int32_t pid);
    bool isObserving(std::int32_t pid) const;
    ScreenyViewPtr createScreenyView() { return m_cache.createScreenyView(); }
    void addToCache(const ScreenyViewPtr& preview) override { m_cache.addToCache(preview); }
    void clearCache() { m_cache.clearCache(); }
    void orderCacheOut() { m_cache.orderCacheOut(); }
    const PreviewCache& cache() const { return m_cache; }

    HotKeyCenter& hotKeyCenter() override { return *m_companions.hotKeyCenter; }
    PlayerControls& playerControls() override { return *m_companions.playerControls; }

private:
    void windowsChanged() override; ///< any thread
    void appLaunched(std::int32_t pid);
    void appTerminated(std::int32_t pid);
    void appActivated();
    void windowScannerThread(const platform::Thread& self);

    EngineSettings m_settings;
    const Companions m_companions;
    FilterTable m_filters;
    const HoverDelays* m_applicationDelegate = nullptr;
    WindowInventory m_inventory;
    PreviewCache m_cache;
    std::vector<ScreenyViewPtr> m_screenyViews;
    std::atomic<bool> m_isShowing{false};
    std::atomic<bool> m_isBadgingRequested{false}; ///< and not yet done
    SWElementPtr m_currentDockElement;
    bool m_shouldInstantShow = false;
    platform::ThreadPtr m_mouseCheckerThread;
    std::vector<std::unique_ptr<SWObserver>> m_observers;
    std::vector<std::unique_ptr<platform::WorkspaceSubscription>> m_subscriptions;

    HoverDispatch m_hover;
    Dismissal m_dismissal;
    PreviewUpdater m_updater;
    StripArranger m_arranger;
    PictureLoader m_pictureLoader;
    RequestedRow m_requestedRow;
    const std::shared_ptr<bool> m_alive = std::make_shared<bool>(true); ///< as long as this
};

} // namespace lumbrix
