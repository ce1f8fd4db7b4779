// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/LXHandler.h"

#include <algorithm>
#include <mutex>

#include "engine/MouseChecker.h"
#include "model/AXNames.h"
#include "platform/Desktop.h"
#include "preview/SafariPreview.h"

namespace lumbrix
{
namespace
{

constexpr platform::Seconds scanInterval = 2.5;

/// Recursive, so that setUp may ask for the handler it sets up.
std::recursive_mutex sharedLock;
std::unique_ptr<LXHandler> sharedInstance;
std::optional<Companions> installedCompanions;

} // namespace

LXHandler& LXHandler::sharedHandler()
{
    const std::lock_guard lock(sharedLock);
    if (!sharedInstance) {
        sharedInstance = std::make_unique<LXHandler>(installedCompanions.value_or(Companions()));
        sharedInstance->setUp();
    }
    return *sharedInstance;
}

void LXHandler::releaseSharedHandler()
{
    const std::lock_guard lock(sharedLock);
    sharedInstance.reset();
    installedCompanions.reset();
    SafariPreview::releaseSharedPreview();
}

void LXHandler::installCompanions(const Companions& companions)
{
    const std::lock_guard lock(sharedLock);
    installedCompanions = companions;
}

LXHandler::LXHandler(const Companions& companions)
    : m_companions(companions), m_inventory(m_settings, *this), m_cache(*this), m_hover(*this),
      m_dismissal(*this), m_updater(*this), m_arranger(*this), m_pictureLoader(*this),
      m_requestedRow(*this)
{
    m_screenyViews.reserve(2);
    m_observers.reserve(5);
}

LXHandler::~LXHandler()
{
    m_companions.windowCountBadger->tearDown();
    SWElement::setFilterLevels(nullptr);
    cancelMouseChecker();
    platform::desktop().runLoop.cancelPreviousPerformRequests(this);
}

void LXHandler::setUp()
{
    const platform::Desktop& desktop = platform::desktop();
    m_filters.setFilters(FilterTable::getFiltersDictionary());
    SWElement::setFilterLevels(&m_filters);
    SafariPreview::sharedPreview();

    using platform::WorkspaceNotification;
    const auto observe = [this, &desktop](WorkspaceNotification notification, auto action) {
        m_subscriptions.push_back(desktop.workspace.observe(notification, std::move(action)));
    };
    observe(WorkspaceNotification::DidLaunchApplication,
            [this](std::int32_t pid) { appLaunched(pid); });
    observe(WorkspaceNotification::DidTerminateApplication,
            [this](std::int32_t pid) { appTerminated(pid); });
    observe(WorkspaceNotification::ActiveSpaceDidChange,
            [this](std::int32_t) { m_inventory.windowScanner(); });
    observe(WorkspaceNotification::DidActivateApplication,
            [this](std::int32_t) { appActivated(); });

    for (const std::int32_t pid : desktop.workspace.launchedApplications())
        addObserverForApp(pid);
    desktop.runLoop.detachThread(
        "window-scanner", [this](const platform::Thread& self) { windowScannerThread(self); });
    m_companions.windowCountBadger->setUp(*this);
    m_requestedRow.setUp();
}

void LXHandler::setFilters(const QVariantMap& filters)
{
    m_filters.setFilters(filters);
    // On a thread of its own: a busy application must not hold up whoever edits the levels.
    platform::desktop().runLoop.detachThread(
        "filter-scan", [this](const platform::Thread&) { m_inventory.windowScanner(); });
    if (isShowingPreviews())
        m_updater.updateNow();
}

void LXHandler::windowScannerThread(const platform::Thread& self)
{
    while (!self.isCancelled()) {
        m_inventory.windowScanner();
        platform::desktop().runLoop.sleep(scanInterval);
    }
}

void LXHandler::setScreenyViews(std::vector<ScreenyViewPtr> previews)
{
    m_screenyViews = std::move(previews);
    m_isShowing = !m_screenyViews.empty();
}

void LXHandler::appendScreenyView(const ScreenyViewPtr& preview)
{
    m_screenyViews.push_back(preview);
    m_isShowing = true;
}

std::vector<ScreenyViewPtr> LXHandler::takeScreenyViews()
{
    m_isShowing = false;
    return std::exchange(m_screenyViews, {});
}

int LXHandler::indexOfScreenyView(const ScreenyView& preview) const
{
    const auto found =
        std::find_if(m_screenyViews.begin(), m_screenyViews.end(),
                     [&preview](const ScreenyViewPtr& shown) { return shown.get() == &preview; });
    return found == m_screenyViews.end() ? -1 : static_cast<int>(found - m_screenyViews.begin());
}

void LXHandler::setCurrentDockElement(const SWElementPtr& element)
{
    m_currentDockElement = element;
    m_requestedRow.itemChanged(element);
}

void LXHandler::mouseExited()
{
    if (!m_requestedRow.hasLeftTheMouse())
        letGoOfRow();
}

void LXHandler::dockSelectionEnded()
{
    // A row that was asked for is not the item's that the mouse has left.
    if (m_requestedRow.isUp())
        cancelMouseChecker();
    else
        mouseExited();
}

void LXHandler::startMouseChecker(const SWElementPtr& element)
{
    cancelMouseChecker();
    m_mouseCheckerThread = platform::desktop().runLoop.makeThread(
        "mouse-checker",
        [this, element](const platform::Thread& self) { mouseChecker(*this, element, self); });
    m_mouseCheckerThread->start();
}

void LXHandler::cancelMouseChecker()
{
    if (m_mouseCheckerThread)
        m_mouseCheckerThread->cancel();
}

void LXHandler::cancelPendingHover()
{
    platform::desktop().runLoop.cancelPreviousPerformRequests(this);
    cancelMouseChecker();
    setCurrentDockElement(nullptr);
    setShouldInstantShow(false);
}

void LXHandler::settingsDidChange()
{
    if (!m_settings.disabled) {
        m_updater.settingsDidChange();
        return;
    }
    // Notifications are ignored from now on, so nothing else would ever end it.
    cancelPendingHover();
    removeAllScreenViews();
}

void LXHandler::removeAllScreenViewsLeavingTimersAlone()
{
    m_dismissal.removeAllScreenViewsLeavingTimersAlone();
}

bool LXHandler::shouldInterceptClick(bool perform, bool isTabExit)
{
    return m_dismissal.shouldInterceptClick(perform, isTabExit);
}

bool LXHandler::checkIfPreviewsAreHovered(bool includeDockItem)
{
    return m_dismissal.checkIfPreviewsAreHovered(includeDockItem);
}

bool LXHandler::checkIfDockElementIsHovered(const SWElementPtr& element) const
{
    return Dismissal::checkIfDockElementIsHovered(element);
}

void LXHandler::armTabExitTimer(platform::Seconds interval, const SWElementPtr& entry)
{
    m_dismissal.armTabExitTimer(interval, entry);
}

void LXHandler::armUpdateTimer(platform::Seconds interval, const SWElementPtr& element)
{
    m_updater.armUpdateTimer(interval, element);
}

void LXHandler::arrangeWindows(const SWElementPtr& item, bool animate)
{
    m_arranger.arrangeWindows(item, animate);
}

void LXHandler::arrangeWindowsBottom(const SWElementPtr& item, bool animate)
{
    m_arranger.arrangeWindowsBottom(item, animate);
}

bool LXHandler::isObserving(std::int32_t pid) const
{
    return std::any_of(m_observers.begin(), m_observers.end(),
                       [pid](const auto& observer) { return observer->isEqualTo(pid); });
}

void LXHandler::addObserverForApp(std::int32_t pid)
{
    auto observer = SWObserver::observerWithPid(pid);
    if (!observer || isObserving(pid))
        return;
    const platform::ElementRef application =
        platform::desktop().accessibility.createApplication(pid);
    observer->observer().addNotification(application, AX::WindowCreated, this);
    observer->observer().addNotification(application, AX::UIElementDestroyed, this);
    observer->observer().addToRunLoop();
    m_observers.push_back(std::move(observer));
}

void LXHandler::windowsChanged()
{
    // Never waits: the scanner must not be held up by the main thread. A scan that finds a hundred
    // windows has them counted once.
    if (m_isBadgingRequested.exchange(true))
        return;
    platform::desktop().runLoop.performOnMainThread(
        [this, alive = std::weak_ptr(m_alive)] {
            if (alive.expired())
                return;
            m_isBadgingRequested = false;
            m_companions.windowCountBadger->badgeDockItems();
        },
        false);
}

void LXHandler::appLaunched(std::int32_t pid)
{
    m_inventory.addAppWindows(pid, WindowInventory::copyWindowList());
    addObserverForApp(pid);
}

void LXHandler::appTerminated(std::int32_t pid)
{
    std::erase_if(m_observers, [pid](const auto& observer) { return observer->isEqualTo(pid); });
    m_companions.windowCountBadger->badgeDockItems();
}

void LXHandler::appActivated()
{
    if (m_settings.closeOnClick && m_currentDockElement)
        removeAllScreenViews();
}

} // namespace lumbrix
