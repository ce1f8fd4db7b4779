// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/PreviewUpdater.h"

#include <algorithm>

#include "engine/HoverRules.h"
#include "engine/LXHandler.h"
#include "engine/Timers.h"
#include "model/Modifiers.h"
#include "model/VisibilityRules.h"
#include "platform/Desktop.h"

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
    m_updatedElement = element;
    m_updateTimer = platform::desktop().runLoop.scheduleTimer(
        interval, true, [this, element] { updateWindows(element); });
}

void PreviewUpdater::settingsDidChange()
{
    if (!m_updateTimer || !m_updateTimer->isValid() || m_handler.screenyViews().empty())
        return;
    const SWElementPtr element = m_updatedElement;
    const EngineSettings& settings = m_handler.settings();
    if (!(element && element->isTabIcon() ? settings.showInTab : settings.showInDock)) {
        m_handler.removeAllScreenViews();
        return;
    }
    Pass pass;
    if (!element || !element->isMinimizedIcon()) {
        refreshShown(pass);
        followApplication(element, pass);
    }
    if (pass.isOver)
        return;
    m_handler.companions().helpBubble->hideBubble(); // comes back with the row, if it is wanted
    for (const ScreenyViewPtr& preview : m_handler.screenyViews())
        preview->hideSpaces(); // come back with the row, if they are wanted
    layOutAgain(element, pass);
}

void PreviewUpdater::invalidateUpdateTimer()
{
    invalidateTimer(m_updateTimer);
    m_updatedElement = nullptr;
}

void PreviewUpdater::updateNow()
{
    if (m_updateTimer && m_updateTimer->isValid())
        updateWindows(SWElementPtr(m_updatedElement));
}

void PreviewUpdater::updateWindows(const SWElementPtr& element)
{
    const EngineSettings& settings = m_handler.settings();
    if (settings.hidePreviews && isModifierHeld(settings.hidePreviewsKeycode)) {
        m_handler.removeAllScreenViewsLeavingTimersAlone();
        return;
    }
    if (m_handler.screenyViews().size() == 1 && element && element->isMinimizedIcon()) {
        if (!updateMinimizedPreview(element))
            m_handler.removeAllScreenViews();
        return;
    }
    Pass pass;
    refreshShown(pass);
    followApplication(element, pass);
    if (pass.isOver)
        return;
    if (pass.added || pass.removed)
        layOutAgain(element, pass);
    m_handler.requestedRow().endIfEmpty();
}

bool PreviewUpdater::updateMinimizedPreview(const SWElementPtr&)
{
    ScreenyView& preview = *m_handler.screenyViews().front();
    const SWElementPtr window = preview.elementRef();
    if (!window || !window->checkIfExists() || !window->checkIfMinimized())
        return false;
    preview.showSpaces();
    refreshTitle(preview, *m_handler.companions().playerControls);
    preview.updateButtons();
    return true;
}

void PreviewUpdater::refreshShown(Pass& pass)
{
    const VisibilityRules rules(m_handler.settings());
    std::vector<ScreenyViewPtr> kept;
    const auto shown = m_handler.screenyViews();
    for (const ScreenyViewPtr& preview : shown) {
        const SWElementPtr window = preview->elementRef();
        const bool goes = window && (rules.verdictForWindow(*window) != WindowVerdict::Good ||
                                     !window->checkIfExists());
        if (goes) {
            // Nobody sees the mouse leave it, and no icon was left before.
            if (m_handler.requestedRow().isUp() && preview->isMouseInside())
                m_handler.letGoOfRow();
            preview->dismiss();
            pass.removed = true;
            continue;
        }
        if (window)
            refreshPreview(*preview);
        kept.push_back(preview);
    }
    m_handler.setScreenyViews(std::move(kept));
}

void PreviewUpdater::refreshPreview(ScreenyView& preview)
{
    const SWElementPtr window = preview.elementRef();
    preview.showSpaces(); // it may have gone to another Space, or to all of them
    if (!m_handler.settings().disableLivePreviews)
        m_handler.pictureLoader().updateScreenshot(preview);
    PlayerControls& player = *m_handler.companions().playerControls;
    refreshTitle(preview, player);
    const QImage artwork = preview.iTunes() ? player.artwork(preview) : QImage();
    if (artwork.isNull())
        preview.setCapture(window->screenshot());
    else
        preview.setImage(artwork);
    preview.updateButtons();
}

void PreviewUpdater::followApplication(const SWElementPtr& element, Pass& pass)
{
    const EngineSettings& settings = m_handler.settings();
    const auto application = element ? element->runningApplicationForDockElement() : std::nullopt;
    if (!application)
        return;
    const bool isOwn =
        application->bundleIdentifier == platform::desktop().workspace.ownBundleIdentifier();
    const bool areChosen = element->chosenWindows().has_value();
    if (!isOwn && !areChosen &&
        VisibilityRules(settings).verdictForApplication(application->pid) != WindowVerdict::Good) {
        m_handler.removeAllScreenViewsLeavingTimersAlone();
        pass.removed = true;
    }
    m_handler.inventory().cleanWindowsArray();
    const auto windows = m_handler.inventory().windowsBehindItem(*element, *application);
    const bool areOthers = areChosen || m_handler.inventory().standsForOthers(*application);
    const bool hasPlace =
        element->isTabIcon() || HoverRules::verdictForPlace(element) == HoverVerdict::Shows;
    if (!hasPlace ||
        HoverRules::verdictForWindows(settings, windows.size(), areOthers) != HoverVerdict::Shows) {
        m_handler.removeAllScreenViewsLeavingTimersAlone();
        pass.added = false;
        return;
    }
    addMissing(windows, *application, element, pass);
}

void PreviewUpdater::addMissing(const std::vector<SWElementPtr>& windows,
                                const platform::RunningApplication& application,
                                const SWElementPtr& element, Pass& pass)
{
    for (const SWElementPtr& window : windows) {
        const auto& previews = m_handler.screenyViews();
        if (previews.size() >= mostPreviews)
            return;
        const bool isShown =
            std::any_of(previews.begin(), previews.end(), [&window](const ScreenyViewPtr& shown) {
                return window->isEqualTo(shown->elementRef());
            });
        if (isShown)
            continue;
        if (element->isRequested() && previews.empty()) {
            m_handler.requestedRow().bringUp(); // without the mouse, which need not be near
            pass.isOver = true;
            return;
        }
        if (!element->isTabIcon() && previews.empty()) {
            // The first preview comes up by way of a full hover, once the mouse is seen to rest.
            element->setIsMouseConfirmed(true);
            m_handler.startMouseChecker(element);
            invalidateUpdateTimer();
            pass.isOver = true;
            return;
        }
        const ScreenyViewPtr preview =
            m_handler.appendPreview(window, application, element->isTabIcon());
        if (!preview)
            return;
        pass.added = true;
    }
}

void PreviewUpdater::layOutAgain(const SWElementPtr& element, const Pass& pass)
{
    if (m_handler.screenyViews().empty()) {
        m_handler.companions().hotKeyCenter->toggleEventTap(false);
        m_handler.companions().helpBubble->hideBubble();
        return;
    }
    if (pass.removed)
        m_handler.setDelayExit(exitChecksSkippedAfterRemoval);
    if (element && element->isTabIcon())
        m_handler.arrangeWindowsBottom(element, true);
    else
        m_handler.arrangeWindows(element, true);
    m_handler.pictureLoader().loadMissing();
    const auto previews = m_handler.screenyViews();
    for (const ScreenyViewPtr& preview : previews) {
        // Place and size of the numbers depend on the panels', which have just changed, also those
        // of the previews that were there before.
        preview->showSpaces();
        preview->setShortcut();
        preview->orderFront();
    }
    m_handler.pictureLoader().showWhenComplete();
    m_handler.companions().hotKeyCenter->toggleEventTap(true);
}

} // namespace lumbrix
