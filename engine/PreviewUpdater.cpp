// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/PreviewUpdater.h"

#include <algorithm>

#include "engine/HoverRules.h"
#include "model/Modifiers.h"
#include "model/VisibilityRules.h"
#include "platform/Log.h"

namespace lumbrix
{
namespace
{
/// After a preview went, the strip moves under the mouse: this many exit checks are skipped, one
/// second in all.
constexpr int exitChecksSkippedAfterRemoval = 20;

/// The track of a music player, the last one while it tells none; the window's title where there is
/// no player to ask.
void refreshTitle(ScreenyView& preview, PlayerControls& player)
{
    if (preview.iTunes() && player.isReachable(preview)) {
        if (const auto track = player.currentTrack(preview))
            preview.setTitleString(*track);
        return;
    }
    preview.setTitleString(preview.elementRef()->getTitle().value_or(QString()));
}
} // namespace

void PreviewUpdater::armUpdateTimer(platform::Seconds interval, const SWElementPtr& element)
{
    m.timers.updated = element;
    m.timers.update =
        m.ports.runLoop.scheduleTimer(interval, true, [this, element] { updateWindows(element); });
}

void PreviewUpdater::settingsDidChange()
{
    if (!m.timers.update || !m.timers.update->isValid() || m.row.isEmpty())
        return;
    const SWElementPtr element = m.timers.updated;
    const EngineSettings& settings = m.settings;
    if (!(element && element->isTabIcon() ? settings.showInTab : settings.showInDock)) {
        m_dismissal.removeAllScreenViews("previews of its kind have been turned off");
        return;
    }
    Pass pass;
    if (!element || !element->isMinimizedIcon()) {
        refreshShown(pass);
        followApplication(element, pass);
    }
    if (pass.isOver)
        return;
    m.companions.helpBubble->hideBubble(); // comes back with the row, if it is wanted
    for (const ScreenyViewPtr& preview : m.row.previews())
        preview->hideSpaces(); // come back with the row, if they are wanted
    layOutAgain(element, pass);
}

SWElementPtr PreviewUpdater::itemOfRow() const
{
    const auto& previews = m.row.previews();
    return previews.empty() || previews.front()->setByTab() ? nullptr : m.hovered.element();
}

void PreviewUpdater::dockItemsDidChange()
{
    const SWElementPtr item = itemOfRow();
    // A preview under the mouse stays where it is.
    if (item && StripArranger::hasPlaceBeside(m.ports.dockPreferences, item) &&
        !m.row.arranger().isArrangedBeside(item) && !m_dismissal.checkIfPreviewsAreHovered(false))
        layOutAgain(item, {});
}

void PreviewUpdater::screensDidChange()
{
    const SWElementPtr item = itemOfRow();
    if (!item)
        return;
    if (!m.row.arranger().isOnScreen(item)) {
        m_dismissal.endAtOnce("its screen is gone");
        return;
    }
    layOutAgain(item, {});
    // The mouse was perhaps put onto another screen, which nothing else tells.
    if (!m_dismissal.checkIfPreviewsAreHovered(true))
        m_dismissal.dockSelectionEnded();
}

void PreviewUpdater::updateNow()
{
    if (m.timers.update && m.timers.update->isValid())
        updateWindows(SWElementPtr(m.timers.updated));
}

void PreviewUpdater::updateWindows(const SWElementPtr& element)
{
    const EngineSettings& settings = m.settings;
    if (settings.hidePreviews && isModifierHeld(m.ports.inputState, settings.hidePreviewsKeycode)) {
        m_dismissal.removeAllScreenViewsLeavingTimersAlone(plainWords(HoverVerdict::HidingKeyHeld));
        return;
    }
    if (m.row.previews().size() == 1 && element && element->isMinimizedIcon()) {
        if (!updateMinimizedPreview(element))
            m_dismissal.removeAllScreenViews("its window is gone, or not minimised any more");
        return;
    }
    Pass pass;
    refreshShown(pass);
    followApplication(element, pass);
    if (pass.isOver)
        return;
    if (pass.added || pass.removed)
        layOutAgain(element, pass);
    // Of one that was asked for nothing is left, and nothing comes with a key.
    if (m.hovered.requested().isUp() && m.row.isEmpty() &&
        !HoverRules::waitsForKey(m.ports.inputState, settings))
        m_dismissal.endAtOnce("nothing is left of what was asked for");
}

bool PreviewUpdater::updateMinimizedPreview(const SWElementPtr&)
{
    ScreenyView& preview = *m.row.previews().front();
    const SWElementPtr window = preview.elementRef();
    if (!window || !window->checkIfExists() || !window->checkIfMinimized())
        return false;
    preview.showSpaces();
    refreshTitle(preview, *m.companions.playerControls);
    preview.updateButtons();
    return true;
}

void PreviewUpdater::refreshShown(Pass& pass)
{
    const VisibilityRules rules(m.ports, m.settings);
    std::vector<ScreenyViewPtr> kept;
    const auto shown = m.row.previews();
    for (const ScreenyViewPtr& preview : shown) {
        const SWElementPtr window = preview->elementRef();
        WindowVerdict verdict = window ? rules.verdictForWindow(*window) : WindowVerdict::Good;
        if (window && verdict == WindowVerdict::Good)
            verdict = window->judgeExistence();
        if (verdict != WindowVerdict::Good) {
            qCDebug(log::hover, "window %#x goes from the row: %s", unsigned{window->wid()},
                    plainWords(verdict));
            // Nobody sees the mouse leave it, and no icon was left before.
            if (m.hovered.requested().isUp() && preview->isMouseInside() &&
                m.row.selection().chosen() != preview)
                m_dismissal.letGo();
            preview->dismiss();
            pass.removed = true;
            continue;
        }
        if (window)
            refreshPreview(*preview);
        kept.push_back(preview);
    }
    m.row.setPreviews(std::move(kept));
}

void PreviewUpdater::refreshPreview(ScreenyView& preview)
{
    const SWElementPtr window = preview.elementRef();
    preview.showSpaces(); // it may have gone to another Space, or to all of them
    PlayerControls& player = *m.companions.playerControls;
    refreshTitle(preview, player);
    // Any other picture follows its window by itself.
    const QImage artwork = preview.iTunes() ? player.artwork(preview) : QImage();
    if (!artwork.isNull())
        preview.setImage(artwork);
    else if (preview.iTunes())
        preview.setCapture(window->screenshot());
    preview.updateButtons();
}

void PreviewUpdater::followApplication(const SWElementPtr& element, Pass& pass)
{
    const EngineSettings& settings = m.settings;
    const auto application = element ? element->runningApplicationForDockElement() : std::nullopt;
    if (!application)
        return;
    const bool isOwn = application->bundleIdentifier == m.ports.workspace.ownBundleIdentifier();
    const bool areChosen = element->chosenWindows().has_value();
    if (!isOwn && !areChosen &&
        VisibilityRules(m.ports, settings).verdictForApplication(application->pid) !=
            WindowVerdict::Good) {
        m_dismissal.removeAllScreenViewsLeavingTimersAlone(
            plainWords(WindowVerdict::ApplicationHidden));
        pass.removed = true;
    }
    m.inventory.cleanWindowsArray();
    const auto windows = m.inventory.windowsBehindItem(*element, *application);
    const bool areOthers = areChosen || m.inventory.standsForOthers(*application);
    const bool hasPlace =
        element->isTabIcon() ||
        HoverRules::verdictForPlace(m.ports.dockPreferences, element) == HoverVerdict::Shows;
    // In the switcher, no key decides.
    const HoverVerdict verdict = element->isTabIcon()
                                     ? HoverRules::verdictInSwitcher(settings, windows.size())
                                     : HoverRules::verdictForWindows(m.ports.inputState, settings,
                                                                     windows.size(), areOthers);
    if (!hasPlace || verdict != HoverVerdict::Shows) {
        m_dismissal.removeAllScreenViewsLeavingTimersAlone(
            plainWords(hasPlace ? verdict : HoverVerdict::NoPlace));
        pass.added = false;
        return;
    }
    addMissing(windows, *application, element, pass);
}

void PreviewUpdater::addMissing(const std::vector<SWElementPtr>& windows,
                                const platform::RunningApplication& application,
                                const SWElementPtr& element, Pass& pass)
{
    for (const SWElementPtr& window : m.row.present(windows)) {
        const auto& previews = m.row.previews();
        if (previews.size() >= maxPreviews)
            break;
        const bool isShown =
            std::any_of(previews.begin(), previews.end(), [&window](const ScreenyViewPtr& shown) {
                return window->isEqualTo(shown->elementRef());
            });
        if (isShown)
            continue;
        if (element->isRequested() && previews.empty()) {
            m.hovered.hoverRequested();
            pass.isOver = true;
            return;
        }
        if (!element->isTabIcon() && previews.empty()) {
            // The first preview comes up by way of a full hover, once the mouse is seen to rest.
            element->setIsMouseConfirmed(true);
            m.hovered.hoverAtRest(element);
            m.timers.stopUpdate();
            pass.isOver = true;
            return;
        }
        if (!m.row.append(window, application, element->isTabIcon()))
            return;
        pass.added = true;
    }
    m.row.updateMore(); // perhaps another number, where nothing else has changed
}

void PreviewUpdater::showMore()
{
    const SWElementPtr element = m.timers.updated;
    if (!element || m.row.isEmpty())
        return;
    const auto application = element->runningApplicationForDockElement();
    if (!application)
        return;
    m.row.turnPage();
    m.row.takeAwayWithTheNextPass();
    m.inventory.cleanWindowsArray();
    for (const SWElementPtr& window :
         m.row.present(m.inventory.windowsBehindItem(*element, *application)))
        m.row.append(window, application, false);
    Pass pass;
    pass.removed = true; // a shorter row may leave the mouse beside it
    layOutAgain(element, pass);
}

void PreviewUpdater::layOutAgain(const SWElementPtr& element, const Pass& pass)
{
    if (m.row.isEmpty()) {
        m.companions.hotKeyCenter->toggleEventTap(false);
        m.companions.helpBubble->hideBubble();
        return;
    }
    if (pass.removed)
        m_dismissal.setDelayExit(exitChecksSkippedAfterRemoval);
    if (element && element->isTabIcon())
        m.row.arranger().arrangeWindowsBottom(element, true);
    else
        m.row.arranger().arrangeWindows(element, true);
    m.row.bringOut();
    m.companions.hotKeyCenter->toggleEventTap(true);
}

} // namespace lumbrix
