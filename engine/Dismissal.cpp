// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/Dismissal.h"

#include <algorithm>

#include "engine/HitTest.h"
#include "platform/Log.h"

namespace lumbrix
{

using platform::DockEdge;

namespace
{

constexpr platform::Seconds exitCheckInterval = 0.05f;

} // namespace

void Dismissal::mouseExited()
{
    if (!m.hovered.requested().hasLeftTheMouse())
        letGo();
}

void Dismissal::dockSelectionEnded()
{
    // A row that was asked for is not the item's that the mouse has left.
    if (m.hovered.requested().isUp())
        m.hovered.cancelHoverAtRest();
    else
        letGo();
}

void Dismissal::letGo()
{
    m.hovered.setShouldInstantShow(false);
    m.hovered.cancelHoverAtRest();
    if (m.settings.neverClose) {
        if (!m.row.isEmpty())
            qCDebug(log::hover, "the mouse has left; the row stays: neverClose is set");
        return;
    }
    if (m.timers.isSwitcherWatched())
        return; // it decides
    invalidateTimer(m.timers.exit);
    m.timers.exit = m.ports.runLoop.scheduleTimer(exitCheckInterval, true,
                                                  [this] { removeAllScreenViewsWithCheck(); });
}

void Dismissal::mouseExitedToOtherIcon()
{
    m.hovered.cancelHoverAtRest();
    m.hovered.setElement(nullptr);
    removeAllScreenViews("the mouse is on an icon that has no previews");
}

void Dismissal::menuOpened()
{
    endAtOnce("a menu of the Dock has opened"); // also what would come up over the menu
}

void Dismissal::endAtOnce(const char* why)
{
    m.hovered.cancelPending();
    removeAllScreenViewsNOW(why);
}

void Dismissal::tellEnd(const char* why) const
{
    if (!m.row.isEmpty())
        qCDebug(log::hover, "the row of %zu goes: %s", m.row.previews().size(), why);
}

void Dismissal::removeAllScreenViews(const char* why)
{
    tellEnd(why);
    m.row.takeAwayWithTheNextPass();
    rowEnded();
}

void Dismissal::removeAllScreenViewsNOW(const char* why)
{
    tellEnd(why);
    m.row.takeAway();
    rowEnded();
}

void Dismissal::removeAllScreenViewsLeavingTimersAlone(const char* why)
{
    tellEnd(why);
    m.row.takeAway();
    m.companions.helpBubble->hideBubble();
}

void Dismissal::rowEnded()
{
    m.companions.helpBubble->hideBubble();
    m.companions.hotKeyCenter->toggleEventTap(false);
    m.timers.stop();
    m.hovered.requested().rowEnded();
}

void Dismissal::removeAllScreenViewsWithCheck()
{
    if (m_delayExit > 0)
        --m_delayExit;
    if (checkIfPreviewsAreHovered(true) || m_delayExit != 0 || m_corridor.leadsNearRow())
        return;
    const float exitDelay = m.settings.exitDelay;
    if (exitDelay == 0.0F) {
        m.hovered.setElement(nullptr);
        removeAllScreenViews("the mouse has left");
        return;
    }
    invalidateTimer(m.timers.exit);
    invalidateTimer(m.timers.exitDelay);
    m.timers.exitDelay = m.ports.runLoop.scheduleTimer(
        static_cast<double>(exitDelay), false, [this] { removeAllScreenViewsWithCheckDelayed(); });
}

void Dismissal::removeAllScreenViewsWithCheckDelayed()
{
    if (checkIfPreviewsAreHovered(true))
        return;
    if (m_corridor.leadsNearRow())
        letGo(); // nothing else would end it, should the mouse turn round
    else
        removeAllScreenViews("the mouse has left, and the delay is over");
}

QRectF Dismissal::bridgedToDock(const QRectF& frame, const QRectF& icon,
                                std::optional<DockEdge> edge) const
{
    // The row was placed beside a magnified icon, which shrinks as soon as the mouse is off it: the
    // gap may have become wider than what the user chose.
    const auto reach = [&](double gap) {
        return std::max<double>(m.settings.distanceFromDock, icon.isEmpty() ? 0 : gap);
    };
    if (edge == DockEdge::Bottom) {
        const double gap = reach(frame.y() - (icon.y() + icon.height()));
        return {frame.x(), frame.y() - gap, frame.width(), frame.height() + gap};
    }
    if (edge == DockEdge::Top) {
        const double gap = reach(icon.y() - (frame.y() + frame.height()));
        return {frame.x(), frame.y(), frame.width(), frame.height() + gap};
    }
    if (edge == DockEdge::Left) {
        const double gap = reach(frame.x() - (icon.x() + icon.width()));
        return {frame.x() - gap, frame.y(), frame.width() + gap, frame.height()};
    }
    if (edge == DockEdge::Right) {
        const double gap = reach(icon.x() - (frame.x() + frame.width()));
        return {frame.x(), frame.y(), frame.width() + gap, frame.height()};
    }
    return {};
}

bool Dismissal::checkIfPreviewsAreHovered(bool includeDockItem)
{
    const QPointF mouse = m.ports.inputState.mouseLocation();
    const SWElementPtr dockItem = m.hovered.element();
    const QRectF icon = includeDockItem && dockItem ? dockItem->getNSRect() : QRectF();
    if (contains(icon, mouse))
        return true;
    const auto edge = StripArranger::getDockOrientation(m.ports.dockPreferences, dockItem);
    // Beside a Dock that is gone there is no gap, and another one may be at any edge.
    const bool hasGap = includeDockItem && (!dockItem || !icon.isEmpty());
    // A copy: a preview's hover state may have the engine change the set.
    const auto previews = m.row.previews();
    for (const ScreenyViewPtr& preview : previews) {
        const QRectF frame = frameOf(*preview);
        const bool isInside = contains(frame, mouse);
        m.row.selection().track(*preview, isInside);
        if (isInside || (hasGap && contains(bridgedToDock(frame, icon, edge), mouse)) ||
            preview->isHovered())
            return true;
    }
    return contains(m.row.more().frame(), mouse);
}

bool Dismissal::shouldInterceptClick(bool perform, bool isTabExit)
{
    const auto previews = m.row.previews();
    // Only the switcher keeps ordinary clicks from reaching the previews.
    if (!m.settings.showInTab || previews.empty() || !previews.front()->setByTab())
        return false;
    const QPointF mouse = m.ports.inputState.mouseLocation();
    for (const ScreenyViewPtr& preview : previews) {
        const QRectF frame = frameOf(*preview);
        if (!contains(frame, mouse))
            continue;
        if (!perform)
            return true; // the release is swallowed with the press
        const QPointF inside = mouse - frame.topLeft();
        if (!isTabExit && preview->isHovered()) {
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
    const auto previews = m.row.previews();
    for (const ScreenyViewPtr& preview : previews) {
        if (!preview->isCloseButtonEnabled())
            preview->setCloseButtonEnabled(true);
        preview->clickCloseButton();
    }
}

} // namespace lumbrix
