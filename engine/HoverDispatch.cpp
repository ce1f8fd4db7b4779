// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/HoverDispatch.h"

#include "engine/HoverRules.h"
#include "engine/LXHandler.h"
#include "engine/MouseChecker.h"
#include "model/Modifiers.h"
#include "platform/Desktop.h"

namespace lumbrix
{
namespace
{
constexpr platform::Seconds updateInterval = 0.5;
constexpr platform::Seconds relaxedUpdateInterval = 1.0;
constexpr platform::Seconds tabExitInterval = 0.1f;
} // namespace

void HoverDispatch::iconHovered(const SWElementPtr& element)
{
    LXHandler& engine = m_handler;
    const bool isConfirmed = element && element->isMouseConfirmed();
    const SWElementPtr current = engine.currentDockElement();
    const bool isRequested = element && element->isRequested(); // the mouse has no part in it
    // Before the item changes, as one that was asked for is gone then.
    const bool areChosen = element && element->chosenWindows();
    const bool wereOthers = current && (current->isMinimizedIcon() || current->chosenWindows());
    if (!isConfirmed && !isRequested && engine.screenyViews().size() >= 2 &&
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
    if (application && !areChosen && engine.inventory().standsForOthers(*application)) {
        lumbrixIconHovered(element);
        return;
    }
    if (isAlreadyShowing(application, false) && !wereOthers && !areChosen &&
        HoverRules::verdictForPlace(element) == HoverVerdict::Shows) {
        if (!element->isEqualTo(current))
            moveRow(element);
        return;
    }
    engine.removeAllScreenViews();
    const HoverVerdict verdict = HoverRules::verdictBeforeWindows(engine.settings());
    if (verdict == HoverVerdict::DockPreviewsOff)
        return;
    if (application && verdict == HoverVerdict::Shows)
        showPreviewsForApplication(*application, element);
    // Armed even when nothing is shown yet: the update brings previews up as soon as it may, while
    // the mouse stays on the item.
    armUpdateTimer(element);
}

// A task bar may have a button for each window. A row that stayed beside the first one would be out
// of the mouse's reach from the others, and it would be hard to say what it belongs to.
void HoverDispatch::moveRow(const SWElementPtr& element)
{
    m_handler.arrangeWindows(element, false);
    m_handler.invalidateUpdateTimer();
    armUpdateTimer(element);
}

void HoverDispatch::showPreviewsForApplication(const platform::RunningApplication& application,
                                               const SWElementPtr& element)
{
    LXHandler& engine = m_handler;
    engine.inventory().cleanWindowsArray();
    const auto windows = engine.inventory().windowsBehindItem(*element, application);
    const bool areChosen = element->chosenWindows().has_value();
    if (HoverRules::verdictForWindows(engine.settings(), windows.size(), areChosen) ==
        HoverVerdict::Shows)
        showPreviews(windows, application, element);
}

void HoverDispatch::showPreviews(const std::vector<SWElementPtr>& windows,
                                 const Application& application, const SWElementPtr& element)
{
    if (HoverRules::verdictForPlace(element) != HoverVerdict::Shows)
        return;
    LXHandler& engine = m_handler;
    engine.setShouldInstantShow(true);
    engine.companions().hotKeyCenter->toggleEventTap(true);
    buildPreviews(windows, application, false);
    engine.arrangeWindows(element, false);
    orderFrontAll();
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
    // The same rules as in the update, which would take back half a second later what they forbid.
    const HoverVerdict verdict = HoverRules::verdictBeforeWindows(settings);
    if (verdict == HoverVerdict::DockPreviewsOff)
        return;
    if (application && verdict == HoverVerdict::Shows) {
        engine.inventory().cleanWindowsArray();
        const auto windows = engine.inventory().windowsBehindIcon(*application);
        if (HoverRules::verdictForWindows(settings, windows.size(), true) == HoverVerdict::Shows)
            showPreviews(windows, application, element);
    }
    armUpdateTimer(element);
}

void HoverDispatch::minimizedIconHovered(const SWElementPtr& element)
{
    LXHandler& engine = m_handler;
    const SWElementPtr current = engine.currentDockElement();
    engine.cancelMouseChecker();
    engine.setCurrentDockElement(element);
    engine.invalidateTabExitTimer();
    engine.invalidateExitTimer();
    const SWElementPtr window =
        element ? engine.inventory().windowForMinimizedIcon(*element) : nullptr;
    if (!window)
        return;
    element->setIsMinimizedIcon(true);
    // A row that only begins with this window is the whole application's, and belongs to another
    // button of a task bar; so may a preview of this window alone.
    const auto& previews = engine.screenyViews();
    if (previews.size() == 1 && window->isEqualTo(previews.front()->elementRef()) &&
        element->isEqualTo(current))
        return;
    engine.removeAllScreenViews();
    if (!engine.settings().showInDock ||
        HoverRules::verdictForPlace(element) != HoverVerdict::Shows)
        return;
    engine.setShouldInstantShow(true);
    engine.companions().hotKeyCenter->toggleEventTap(true);
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
    if (HoverRules::verdictInSwitcher(engine.settings(), windows.size()) == HoverVerdict::Shows) {
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
    const SWElementPtr item = m_handler.currentDockElement();
    const bool isChosen = item && item->chosenWindows(); // of whatever application
    preview->setAppFlags(isChosen ? window->runningApplicationForWindow() : application);
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
