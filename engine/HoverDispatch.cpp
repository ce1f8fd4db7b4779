// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/HoverDispatch.h"

#include "engine/LXHandler.h"
#include "engine/MouseChecker.h"
#include "model/Modifiers.h"
#include "platform/Desktop.h"

namespace lumbrix
{
namespace
{
/// Building stops once this many previews are up.
constexpr std::size_t mostPreviews = 15;
constexpr platform::Seconds updateInterval = 0.5;
constexpr platform::Seconds relaxedUpdateInterval = 1.0;
constexpr platform::Seconds tabExitInterval = 0.1f;
} // namespace

void HoverDispatch::iconHovered(const SWElementPtr& element)
{
    LXHandler& engine = m_handler;
    const bool isConfirmed = element && element->isMouseConfirmed();
    const SWElementPtr current = engine.currentDockElement();
    if (!isConfirmed && engine.screenyViews().size() >= 2 &&
        (!element || !element->isEqualTo(current))) {
        // A row is up and the mouse passes over another icon, perhaps only on its way to the row:
        // wait until it rests.
        engine.startMouseChecker(element);
        return;
    }
    engine.cancelMouseChecker(); // of an icon that the mouse only passed
    engine.invalidateTabExitTimer();
    engine.invalidateExitTimer();
    if (isConfirmed && engine.checkIfPreviewsAreHovered(false))
        return;
    engine.setCurrentDockElement(element);
    if (element && element->isCal()) {
        engine.companions().calendarPreview->calIconHovered(element);
        return;
    }
    const Application application =
        element ? element->runningApplicationForDockElement() : std::nullopt;
    if (engine.settings().showOthersInDockIcon && application &&
        application->bundleIdentifier == platform::desktop().workspace.ownBundleIdentifier()) {
        lumbrixIconHovered(element);
        return;
    }
    if (isAlreadyShowing(application, false))
        return;
    engine.removeAllScreenViews();
    if (!engine.settings().showInDock)
        return;
    if (application)
        showPreviewsForApplication(*application, element);
    // Armed even when nothing is shown yet: the update brings previews up as soon as it may, while
    // the mouse stays on the item.
    armUpdateTimer(element);
}

bool HoverDispatch::showPreviewsForApplication(const platform::RunningApplication& application,
                                               const SWElementPtr& element)
{
    LXHandler& engine = m_handler;
    const EngineSettings& settings = engine.settings();
    if (settings.hidePreviews && isModifierHeld(settings.hidePreviewsKeycode))
        return false;
    engine.inventory().cleanWindowsArray();
    const auto windows = engine.inventory().windowsForPID(application.pid);
    if (!passesWindowCountRule(windows.size()))
        return false;
    if (settings.onlyIfPressed && !isModifierHeld(settings.onlyIfKeycode))
        return false;
    engine.setShouldInstantShow(true);
    engine.companions().hotKeyCenter->toggleEventTap(true);
    buildPreviews(windows, application, false);
    engine.arrangeWindows(element, false);
    orderFrontAll();
    return true;
}

bool HoverDispatch::passesWindowCountRule(std::size_t count) const
{
    const EngineSettings& settings = m_handler.settings();
    const std::size_t fewest = settings.ignoreOneWindow ? 2 : 1;
    return count >= fewest || (count != 0 && areFiltersSuspended(settings));
}

bool HoverDispatch::isAlreadyShowing(const Application& application, bool byTab) const
{
    const auto& previews = m_handler.screenyViews();
    if (previews.empty() || !application)
        return false;
    const ScreenyView& first = *previews.front();
    return first.elementRef() && first.elementRef()->pid() == application->pid &&
           first.setByTab() == byTab;
}

void HoverDispatch::lumbrixIconHovered(const SWElementPtr& element)
{
    LXHandler& engine = m_handler;
    const EngineSettings& settings = engine.settings();
    engine.invalidateTabExitTimer();
    engine.invalidateExitTimer();
    const Application application =
        element ? element->runningApplicationForDockElement() : std::nullopt;
    engine.removeAllScreenViews();
    if (!settings.showInDock)
        return;
    if (application) {
        engine.inventory().cleanWindowsArray();
        auto windows = engine.inventory().windowsForPID(application->pid);
        if (settings.showOthersInDockIcon) {
            for (const std::int32_t pid : WindowInventory::applicationsWithoutDockIcon()) {
                if (pid == application->pid)
                    continue;
                const auto more = engine.inventory().windowsForPID(pid);
                windows.insert(windows.end(), more.begin(), more.end());
            }
        }
        const bool mayShow = !settings.onlyIfPressed || isModifierHeld(settings.onlyIfKeycode);
        if (!windows.empty() && mayShow) {
            engine.companions().hotKeyCenter->toggleEventTap(true);
            engine.setShouldInstantShow(true);
            buildPreviews(windows, application, false);
            engine.arrangeWindows(element, false);
            orderFrontAll();
        }
    }
    armUpdateTimer(element);
}

void HoverDispatch::minimizedIconHovered(const SWElementPtr& element)
{
    LXHandler& engine = m_handler;
    engine.cancelMouseChecker();
    engine.setCurrentDockElement(element);
    engine.invalidateTabExitTimer();
    engine.invalidateExitTimer();
    const SWElementPtr window =
        element ? engine.inventory().windowForMinimizedIcon(*element) : nullptr;
    if (!window)
        return;
    const auto& previews = engine.screenyViews();
    if (!previews.empty() && previews.front()->elementRef() &&
        previews.front()->elementRef()->isEqualTo(window))
        return;
    engine.removeAllScreenViews();
    if (!engine.settings().showInDock)
        return;
    engine.setShouldInstantShow(true);
    engine.companions().hotKeyCenter->toggleEventTap(true);
    element->setIsMinimizedIcon(true);
    const ScreenyViewPtr preview =
        appendPreview(window, window->runningApplicationForWindow(), false);
    engine.arrangeWindows(element, false);
    engine.pictureLoader().loadMissing();
    if (preview) {
        preview->showSpaces();
        const EngineSettings& settings = engine.settings();
        // With the key held the preview exists but stays unshown; the next update drops it.
        if (!settings.hidePreviews || !isModifierHeld(settings.hidePreviewsKeycode)) {
            preview->orderFront();
            preview->setShortcut();
        }
    }
    engine.pictureLoader().showWhenComplete();
    armUpdateTimer(element);
}

void HoverDispatch::processListIconHovered(const Application& application,
                                           const SWElementPtr& element)
{
    LXHandler& engine = m_handler;
    // Dismissal must never take a switcher entry's rectangle for a hovered Dock item.
    engine.setCurrentDockElement(nullptr);
    if (element)
        element->setIsTabIcon(true);
    if (!engine.settings().showInTab) {
        engine.removeAllScreenViews();
        return;
    }
    if (isAlreadyShowing(application, true))
        return;
    engine.removeAllScreenViews();
    engine.inventory().cleanWindowsArray();
    const auto windows = application ? engine.inventory().windowsForPID(application->pid)
                                     : std::vector<SWElementPtr>{};
    const std::size_t fewest = engine.settings().ignoreOneWindow ? 2 : 1;
    if (windows.size() >= fewest) {
        engine.setShouldInstantShow(true);
        buildPreviews(windows, application, true);
        engine.companions().hotKeyCenter->toggleEventTap(true);
        // The switcher is in the middle of the screen, so its previews go to the bottom whatever
        // the Dock's side.
        engine.arrangeWindowsBottom(element, false);
        orderFrontAll();
    }
    engine.armUpdateTimer(updateInterval, element);
    engine.armTabExitTimer(tabExitInterval, element);
}

ScreenyViewPtr HoverDispatch::appendPreview(const SWElementPtr& window,
                                            const Application& application, bool byTab)
{
    ScreenyViewPtr preview = m_handler.createScreenyView();
    if (!preview)
        return nullptr;
    if (byTab)
        preview->setSetByTab(true);
    m_handler.appendScreenyView(preview);
    // One that is used again on the spot still has the picture of its former window.
    preview->setImage({});
    preview->setElementRef(window);
    preview->setTitleString(window->getTitle().value_or(QString()));
    preview->setAppFlags(application);
    return preview;
}

void HoverDispatch::buildPreviews(const std::vector<SWElementPtr>& windows,
                                  const Application& application, bool byTab)
{
    for (const SWElementPtr& window : windows) {
        appendPreview(window, application, byTab);
        if (m_handler.screenyViews().size() >= mostPreviews)
            break;
    }
}

void HoverDispatch::orderFrontAll()
{
    m_handler.pictureLoader().loadMissing();
    for (const ScreenyViewPtr& preview : m_handler.screenyViews()) {
        preview->orderFront();
        preview->setShortcut();
        preview->showSpaces();
    }
    m_handler.pictureLoader().showWhenComplete();
}

void HoverDispatch::armUpdateTimer(const SWElementPtr& element)
{
    m_handler.armUpdateTimer(
        m_handler.settings().neverClose ? relaxedUpdateInterval : updateInterval, element);
}

} // namespace lumbrix
