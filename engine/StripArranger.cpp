// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/StripArranger.h"

#include <algorithm>

#include "model/EngineSettings.h"
#include "model/UIElementUtilities.h"
#include "platform/RunLoop.h"
#include "platform/WindowServer.h"
#include "preview/HelpBubble.h"

namespace lumbrix
{

using platform::DockEdge;

namespace
{

constexpr int settleReadings = 30;
constexpr platform::Seconds settleInterval = 0.03;

platform::DockPreferences& fresh(platform::DockPreferences& preferences)
{
    preferences.synchronize();
    return preferences;
}

platform::ElementRef elementOf(const SWElementPtr& item)
{
    return item ? item->element() : nullptr;
}

QRectF rectOf(const SWElementPtr& item) { return item ? item->getRect() : QRectF(); }

} // namespace

std::optional<DockEdge> StripArranger::getDockOrientation(platform::DockPreferences& preferences,
                                                          const SWElementPtr& item)
{
    return fresh(preferences).orientation(elementOf(item));
}

bool StripArranger::isDockMagnificationEnabled(platform::DockPreferences& preferences,
                                               const SWElementPtr& item)
{
    return fresh(preferences).magnification(elementOf(item)) == 1;
}

bool StripArranger::isDockAutoHidingEnabled(platform::DockPreferences& preferences,
                                            const SWElementPtr& item)
{
    return fresh(preferences).autohide(elementOf(item)) == 1;
}

bool StripArranger::hasPlaceBeside(platform::DockPreferences& preferences, const SWElementPtr& item)
{
    return !rectOf(item).isEmpty() && getDockOrientation(preferences, item).has_value();
}

bool StripArranger::isOnScreen(const SWElementPtr& item) const
{
    const auto screens = m_ports.windowServer.screens();
    return hasPlaceBeside(m_ports.dockPreferences, item) &&
           std::ranges::any_of(
               screens, [&](const QRectF& screen) { return screen.intersects(rectOf(item)); });
}

bool StripArranger::isArrangedBeside(const SWElementPtr& item) const
{
    return rectOf(item) == m_icon && getDockOrientation(m_ports.dockPreferences, item) == m_edge;
}

void StripArranger::arrangeWindows(const SWElementPtr& item, bool animate)
{
    const auto edge = getDockOrientation(m_ports.dockPreferences, item);
    if (edge == DockEdge::Bottom)
        arrangeWindowsBottom(item, animate);
    else if (edge == DockEdge::Top)
        arrangeWindowsTop(item, animate);
    else if (edge == DockEdge::Left)
        arrangeWindowsLeft(item, animate);
    else if (edge == DockEdge::Right)
        arrangeWindowsRight(item, animate);
}

void StripArranger::arrangeWindowsBottom(const SWElementPtr& item, bool /*animate*/)
{
    arrangeStrip(DockEdge::Bottom, item);
}

void StripArranger::arrangeWindowsTop(const SWElementPtr& item, bool /*animate*/)
{
    arrangeStrip(DockEdge::Top, item);
}

void StripArranger::arrangeWindowsLeft(const SWElementPtr& item, bool /*animate*/)
{
    arrangeStrip(DockEdge::Left, item);
}

void StripArranger::arrangeWindowsRight(const SWElementPtr& item, bool /*animate*/)
{
    arrangeStrip(DockEdge::Right, item);
}

void StripArranger::arrangeStrip(DockEdge edge, const SWElementPtr& item)
{
    waitUntilSettled(item);
    std::optional<QSizeF> size;
    if (!m_previews.empty() && m_previews.front()->iCal() && m_previews.front()->window())
        size = m_previews.front()->window()->frame().size();
    m_edge = edge;
    m_icon = rectOf(item);
    const auto count = static_cast<int>(m_previews.size());
    const PreviewLayout::Input input = layoutInput(m_icon);
    const auto frames = item && item->isTabIcon() ? PreviewLayout::rowBesideSwitcher(input, count)
                                                  : PreviewLayout::strip(edge, input, count, size);
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

QRectF StripArranger::placeOfMore(QSizeF size) const
{
    if (m_previews.empty() || !m_edge)
        return {};
    const QRectF row = m_previews.front()->window()->frame() | m_previews.back()->window()->frame();
    const QPointF icon = UIElementUtilities(m_ports).flippedScreenBounds(m_icon).center();
    const auto along = [](double middle, double extent, double from, double to) {
        return std::max(from, std::min(middle - extent / 2, to - extent));
    };
    const double x = along(icon.x(), size.width(), row.left(), row.right());
    const double y = along(icon.y(), size.height(), row.top(), row.bottom());
    switch (*m_edge) {
    case DockEdge::Top:
        return {{x, row.top() - size.height()}, size};
    case DockEdge::Left:
        return {{row.right(), y}, size};
    case DockEdge::Right:
        return {{row.left() - size.width(), y}, size};
    case DockEdge::Bottom:
        break;
    }
    return {{x, row.bottom()}, size};
}

void StripArranger::arrangeWindow(ScreenyView& preview)
{
    const SWElementPtr first = SWElement::getFirstDockElement(m_ports);
    const auto edge = getDockOrientation(m_ports.dockPreferences, first);
    if (MAWindow* window = preview.window(); window && edge && first)
        window->setFrame(PreviewLayout::sample(*edge, layoutInput(first->getRect())));
    preview.orderFront();
}

void StripArranger::waitUntilSettled(const SWElementPtr& item) const
{
    platform::DockPreferences& dock = m_ports.dockPreferences;
    // With magnification, or while the Dock slides in, the icon is still moving.
    if (dock.tellsFinalPlaces() ||
        (!isDockMagnificationEnabled(dock, item) && !isDockAutoHidingEnabled(dock, item)))
        return;
    QRectF previous = rectOf(item);
    for (int reading = 1; reading < settleReadings; ++reading) {
        m_ports.runLoop.sleep(settleInterval);
        const QRectF current = rectOf(item);
        if (current == previous)
            return;
        previous = current;
    }
}

PreviewLayout::Input StripArranger::layoutInput(const QRectF& icon) const
{
    const auto screens = m_ports.windowServer.screens();
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
