// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/StripArranger.h"

#include <algorithm>

#include "model/EngineSettings.h"
#include "platform/Desktop.h"
#include "platform/DockPreferences.h"
#include "platform/RunLoop.h"
#include "platform/WindowServer.h"
#include "preview/HelpBubble.h"

namespace lumbrix
{

using PreviewLayout::DockSide;

namespace
{

constexpr int settleReadings = 30;
constexpr platform::Seconds settleInterval = 0.03;

platform::DockPreferences& freshDockPreferences()
{
    platform::DockPreferences& preferences = platform::desktop().dockPreferences;
    preferences.synchronize();
    return preferences;
}

platform::ElementRef elementOf(const SWElementPtr& item)
{
    return item ? item->element() : nullptr;
}

QRectF rectOf(const SWElementPtr& item) { return item ? item->getRect() : QRectF(); }

} // namespace

QString StripArranger::getDockOrientation(const SWElementPtr& item)
{
    return freshDockPreferences().orientation(elementOf(item)).value_or(QStringLiteral("bottom"));
}

std::optional<DockSide> StripArranger::dockSide(const SWElementPtr& item)
{
    return PreviewLayout::dockSideForOrientation(getDockOrientation(item));
}

bool StripArranger::isDockMagnificationEnabled(const SWElementPtr& item)
{
    return freshDockPreferences().magnification(elementOf(item)) == 1;
}

bool StripArranger::isDockAutoHidingEnabled(const SWElementPtr& item)
{
    return freshDockPreferences().autohide(elementOf(item)) == 1;
}

bool StripArranger::hasPlaceBeside(const SWElementPtr& item)
{
    return !rectOf(item).isEmpty() && dockSide(item).has_value();
}

bool StripArranger::isOnScreen(const SWElementPtr& item)
{
    const auto screens = platform::desktop().windowServer.screens();
    return hasPlaceBeside(item) && std::ranges::any_of(screens, [&](const QRectF& screen) {
               return screen.intersects(rectOf(item));
           });
}

bool StripArranger::isArrangedBeside(const SWElementPtr& item) const
{
    return rectOf(item) == m_icon && dockSide(item) == m_side;
}

void StripArranger::arrangeWindows(const SWElementPtr& item, bool animate)
{
    const auto side = dockSide(item);
    if (side == DockSide::Bottom)
        arrangeWindowsBottom(item, animate);
    else if (side == DockSide::Top)
        arrangeWindowsTop(item, animate);
    else if (side == DockSide::Left)
        arrangeWindowsLeft(item, animate);
    else if (side == DockSide::Right)
        arrangeWindowsRight(item, animate);
}

void StripArranger::arrangeWindowsBottom(const SWElementPtr& item, bool /*animate*/)
{
    arrangeStrip(DockSide::Bottom, item);
}

void StripArranger::arrangeWindowsTop(const SWElementPtr& item, bool /*animate*/)
{
    arrangeStrip(DockSide::Top, item);
}

void StripArranger::arrangeWindowsLeft(const SWElementPtr& item, bool /*animate*/)
{
    arrangeStrip(DockSide::Left, item);
}

void StripArranger::arrangeWindowsRight(const SWElementPtr& item, bool /*animate*/)
{
    arrangeStrip(DockSide::Right, item);
}

void StripArranger::arrangeStrip(DockSide side, const SWElementPtr& item)
{
    waitUntilSettled(item);
    std::optional<QSizeF> size;
    if (!m_previews.empty() && m_previews.front()->iCal() && m_previews.front()->window())
        size = m_previews.front()->window()->frame().size();
    m_side = side;
    m_icon = rectOf(item);
    const auto count = static_cast<int>(m_previews.size());
    const PreviewLayout::Input input = layoutInput(m_icon);
    const auto frames = item && item->isTabIcon() ? PreviewLayout::rowBesideSwitcher(input, count)
                                                  : PreviewLayout::strip(side, input, count, size);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        if (MAWindow* window = m_previews[i]->window())
            window->setFrame(frames[i]);
        m_previews[i]->setTrackingRect();
    }
    markOwnWindow(item);
    m_bubble.positionAndShowBubble(m_previews);
}

void StripArranger::markOwnWindow(const SWElementPtr& item)
{
    const auto own = item && m_previews.size() > 1 ? item->ownWindow() : std::nullopt;
    for (const ScreenyViewPtr& preview : m_previews) {
        const SWElementPtr& window = preview->elementRef();
        preview->setMarked(own && window && window->wid() == *own);
    }
}

void StripArranger::arrangeWindow(ScreenyView& preview)
{
    const SWElementPtr first = SWElement::getFirstDockElement(platform::desktop());
    const auto side = dockSide(first);
    if (MAWindow* window = preview.window(); window && side && first)
        window->setFrame(PreviewLayout::sample(*side, layoutInput(first->getRect())));
    preview.orderFront();
}

void StripArranger::waitUntilSettled(const SWElementPtr& item)
{
    // Under magnification or while the Dock slides in, the icon is still moving.
    if (platform::desktop().dockPreferences.tellsFinalPlaces() ||
        (!isDockMagnificationEnabled(item) && !isDockAutoHidingEnabled(item)))
        return;
    QRectF previous = rectOf(item);
    for (int reading = 1; reading < settleReadings; ++reading) {
        platform::desktop().runLoop.sleep(settleInterval);
        const QRectF current = rectOf(item);
        if (current == previous)
            return;
        previous = current;
    }
}

PreviewLayout::Input StripArranger::layoutInput(const QRectF& icon) const
{
    const auto screens = platform::desktop().windowServer.screens();
    PreviewLayout::Input input;
    input.icon = icon;
    input.screen = PreviewLayout::screenOfIcon(icon, screens);
    input.mainScreenHeight = screens.empty() ? 0 : screens.front().height();
    input.windowWidth = m_settings.windowWidth;
    input.windowHeight = m_settings.windowHeight;
    input.distanceFromDock = m_settings.distanceFromDock;
    return input;
}

} // namespace lumbrix
