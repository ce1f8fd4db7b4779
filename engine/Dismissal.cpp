// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/Dismissal.h"

#include <algorithm>

#include "engine/HoverDelays.h"
#include "engine/LXHandler.h"
#include "engine/Timers.h"
#include "platform/Desktop.h"
#include "platform/InputState.h"

namespace lumbrix
{
namespace
{

constexpr platform::Seconds exitCheckInterval = 0.05f;
/// The switcher needs this long to settle on another entry.
constexpr platform::Seconds switcherSettleTime = 0.2f;

QPointF mouseLocation() { return platform::desktop().inputState.mouseLocation(); }

/// Half open, so that of two panels that touch only one holds the mouse. Empty rectangles hold
/// nothing.
bool contains(const QRectF& rect, QPointF point)
{
    return point.x() >= rect.x() && point.x() < rect.x() + rect.width() && point.y() >= rect.y() &&
           point.y() < rect.y() + rect.height();
}

QRectF frameOf(const ScreenyView& preview)
{
    return preview.window() ? preview.window()->frame() : QRectF();
}

/// The cache hands out last what it got first: so the next row gets each panel in its former place,
/// and panels that are still on screen do not change places with each other.
template <class Action>
void forEachFromLast(const std::vector<ScreenyViewPtr>& previews, Action action)
{
    for (auto preview = previews.rbegin(); preview != previews.rend(); ++preview)
        action(**preview);
}

/// Shows or ends a preview's hover state where it differs from where the mouse is.
void trackHover(ScreenyView& preview, bool isInside)
{
    if (isInside && preview.isCloseButtonHidden())
        preview.mouseEntered();
    else if (!isInside && preview.isMouseInside())
        preview.mouseExited();
}

} // namespace

void Dismissal::mouseExited()
{
    m_handler.setShouldInstantShow(false);
    m_handler.cancelMouseChecker();
    if (m_handler.settings().neverClose)
        return;
    if (m_tabExitTimer && m_tabExitTimer->isValid())
        return; // the switcher watch decides
    invalidateExitTimer();
    m_exitTimer = platform::desktop().runLoop.scheduleTimer(
        exitCheckInterval, true, [this] { removeAllScreenViewsWithCheck(); });
}

void Dismissal::mouseExitedToOtherIcon()
{
    m_handler.cancelMouseChecker();
    m_handler.setCurrentDockElement(nullptr);
    removeAllScreenViews();
}

void Dismissal::menuOpened()
{
    m_handler.cancelPendingHover(); // or it would come up over the menu
    removeAllScreenViewsNOW();
}

void Dismissal::removeAllScreenViews()
{
    forEachFromLast(m_handler.takeScreenyViews(), [](ScreenyView& preview) { preview.rebirth(); });
    m_orderOutTimer =
        platform::desktop().runLoop.scheduleTimer(0, false, [this] { m_handler.orderCacheOut(); });
    m_handler.companions().helpBubble->hideBubble();
    m_handler.companions().hotKeyCenter->toggleEventTap(false);
    stopTimers();
    m_handler.requestedRow().rowEnded();
}

void Dismissal::removeAllScreenViewsNOW()
{
    forEachFromLast(m_handler.takeScreenyViews(), [](ScreenyView& preview) { preview.dismiss(); });
    m_handler.companions().helpBubble->hideBubble();
    m_handler.companions().hotKeyCenter->toggleEventTap(false);
    stopTimers();
    m_handler.requestedRow().rowEnded();
}

void Dismissal::removeAllScreenViewsLeavingTimersAlone()
{
    forEachFromLast(m_handler.takeScreenyViews(), [](ScreenyView& preview) { preview.dismiss(); });
    m_handler.companions().helpBubble->hideBubble();
}

void Dismissal::stopTimers()
{
    invalidateTabExitTimer();
    invalidateExitTimer();
    m_handler.invalidateUpdateTimer();
}

void Dismissal::removeAllScreenViewsWithCheck()
{
    if (m_delayExit > 0)
        --m_delayExit;
    if (checkIfPreviewsAreHovered(true) || m_delayExit != 0)
        return;
    const float exitDelay = m_handler.settings().exitDelay;
    if (exitDelay == 0.0F) {
        m_handler.setCurrentDockElement(nullptr);
        removeAllScreenViews();
        return;
    }
    invalidateExitTimer();
    invalidateExitDelayTimer();
    m_exitDelayTimer = platform::desktop().runLoop.scheduleTimer(
        static_cast<double>(exitDelay), false, [this] { removeAllScreenViewsWithCheckDelayed(); });
}

void Dismissal::removeAllScreenViewsWithCheckDelayed()
{
    if (!checkIfPreviewsAreHovered(true))
        removeAllScreenViews();
}

bool Dismissal::checkIfDockElementIsHovered(const SWElementPtr& element)
{
    return element && contains(element->getNSRect(), mouseLocation());
}

QRectF Dismissal::bridgedToDock(const QRectF& frame, const QRectF& icon,
                                const QString& orientation) const
{
    // The row was placed beside a magnified icon, which shrinks as soon as the mouse is off it: the
    // gap may have become wider than what the user chose.
    const auto reach = [&](double gap) {
        return std::max<double>(m_handler.settings().distanceFromDock, icon.isEmpty() ? 0 : gap);
    };
    if (orientation == QLatin1String("bottom")) {
        const double gap = reach(frame.y() - (icon.y() + icon.height()));
        return {frame.x(), frame.y() - gap, frame.width(), frame.height() + gap};
    }
    if (orientation == QLatin1String("top")) {
        const double gap = reach(icon.y() - (frame.y() + frame.height()));
        return {frame.x(), frame.y(), frame.width(), frame.height() + gap};
    }
    if (orientation == QLatin1String("left")) {
        const double gap = reach(frame.x() - (icon.x() + icon.width()));
        return {frame.x() - gap, frame.y(), frame.width() + gap, frame.height()};
    }
    if (orientation == QLatin1String("right")) {
        const double gap = reach(icon.x() - (frame.x() + frame.width()));
        return {frame.x(), frame.y(), frame.width() + gap, frame.height()};
    }
    return {};
}

bool Dismissal::checkIfPreviewsAreHovered(bool includeDockItem)
{
    const QPointF mouse = mouseLocation();
    const SWElementPtr dockItem = m_handler.currentDockElement();
    const QRectF icon = includeDockItem && dockItem ? dockItem->getNSRect() : QRectF();
    if (contains(icon, mouse))
        return true;
    const QString orientation = LXHandler::getDockOrientation(dockItem);
    // A copy: a preview's hover state may have the engine change the set.
    const auto previews = m_handler.screenyViews();
    for (const ScreenyViewPtr& preview : previews) {
        const QRectF frame = frameOf(*preview);
        const bool isInside = contains(frame, mouse);
        trackHover(*preview, isInside);
        if (isInside ||
            (includeDockItem && contains(bridgedToDock(frame, icon, orientation), mouse)) ||
            !preview->isCloseButtonHidden())
            return true;
    }
    return false;
}

void Dismissal::tabExitCheck(const SWElementPtr& entry)
{
    if (SWElement::checkIfDockFocusedIsAXList()) {
        followSwitcher(entry);
        const QPointF mouse = mouseLocation();
        const auto previews = m_handler.screenyViews();
        for (const ScreenyViewPtr& preview : previews)
            trackHover(*preview, contains(frameOf(*preview), mouse));
        return;
    }
    // The switcher has closed: over a preview, that picks its window.
    m_handler.setShouldInstantShow(false);
    shouldInterceptClick(true, true);
    removeAllScreenViews();
}

void Dismissal::followSwitcher(const SWElementPtr& entry)
{
    if (!entry || !entry->isTabIcon())
        return;
    const SWElementPtr selected = SWElement::getDockSelectedChild();
    if (!selected || selected->isEqualTo(entry) || entry->willBeChanged())
        return;
    const auto application = SWElement::runningAppForProccessListIcon(selected->element());
    if (!application)
        return;
    platform::RunLoop& runLoop = platform::desktop().runLoop;
    // Blocks the main thread on purpose: nothing sensible can be shown while the switcher moves.
    runLoop.sleep(switcherSettleTime);
    const HoverDelays* delays = m_handler.applicationDelegate();
    if (delays && delays->displayDelay() > 0) {
        runLoop.cancelPreviousPerformRequests(&m_handler);
        entry->setWillBeChanged(true); // later checks must not start the same change again
        if (!delays->dontDelayIfOpen() || m_handler.screenyViews().empty()) {
            runLoop.performAfterDelay(&m_handler, static_cast<double>(delays->displayDelay()),
                                      [this, application, selected] {
                                          m_handler.processListIconHovered(application, selected);
                                      });
            return;
        }
    }
    m_handler.processListIconHovered(application, selected);
}

bool Dismissal::shouldInterceptClick(bool perform, bool isTabExit)
{
    const auto previews = m_handler.screenyViews();
    // Only the switcher keeps ordinary clicks from reaching the previews.
    if (!m_handler.settings().showInTab || previews.empty() || !previews.front()->setByTab())
        return false;
    const QPointF mouse = mouseLocation();
    for (const ScreenyViewPtr& preview : previews) {
        const QRectF frame = frameOf(*preview);
        if (!contains(frame, mouse))
            continue;
        if (!perform)
            return true; // the release is swallowed with the press
        const QPointF inside = mouse - frame.topLeft();
        if (!isTabExit && !preview->isCloseButtonHidden()) {
            if (contains(preview->closeButtonFrame(), inside)) {
                preview->clickCloseButton();
                return true;
            }
            const bool hasControls =
                preview->iTunes() || preview->QuickTime() || preview->VLC() || preview->Mail();
            if (hasControls && preview->clickControlAt(inside))
                return true;
        }
        preview->clickImage();
        return true;
    }
    return false;
}

void Dismissal::closeAllWindows()
{
    const auto previews = m_handler.screenyViews();
    for (const ScreenyViewPtr& preview : previews) {
        if (!preview->isCloseButtonEnabled())
            preview->setCloseButtonEnabled(true);
        preview->clickCloseButton();
    }
}

void Dismissal::armTabExitTimer(platform::Seconds interval, const SWElementPtr& entry)
{
    m_tabExitTimer = platform::desktop().runLoop.scheduleTimer(
        interval, true, [this, entry] { tabExitCheck(entry); });
}

void Dismissal::invalidateExitTimer() { invalidateTimer(m_exitTimer); }
void Dismissal::invalidateTabExitTimer() { invalidateTimer(m_tabExitTimer); }
void Dismissal::invalidateExitDelayTimer() { invalidateTimer(m_exitDelayTimer); }

} // namespace lumbrix
