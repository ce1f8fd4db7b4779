// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/NotificationIntake.h"

#include <utility>

#include "model/AXRead.h"
#include "platform/Log.h"
#include "platform/Privacy.h"

namespace lumbrix
{
namespace
{

using platform::ElementRef;

SWElementPtr wrappedItem(const platform::Desktop& ports, const ElementRef& item, bool isCalendar)
{
    SWElementPtr element = SWElement::elementWithElementRef(ports, item);
    if (isCalendar)
        element->setIsCal(true);
    return element;
}

} // namespace

void NotificationIntake::dispatch(const HoverDelays* delays, std::function<void()> action)
{
    const float delay = delays ? delays->displayDelay() : 0;
    const bool isOpen = m.hovered.shouldInstantShow() || !m.row.isEmpty();
    if (!(delay > 0) || (delays->dontDelayIfOpen() != 0 && isOpen))
        action();
    else
        m.hovered.performAfterDelay(static_cast<double>(delay), std::move(action));
}

DockItemKind NotificationIntake::kindOf(const ElementRef& item) const
{
    return kindOfDockItem(m.ports, item, m.companions.calendarPreview->shouldShowCal());
}

void NotificationIntake::dispatchSwitcherEntry(const HoverDelays* delays,
                                               const platform::RunningApplication& application,
                                               const ElementRef& item)
{
    dispatch(delays,
             [this, application, element = SWElement::elementWithElementRef(m.ports, item)] {
                 m_switcher.processListIconHovered(application, element);
             });
}

ElementRef NotificationIntake::selectedItem(const ElementRef& element)
{
    const platform::AXResult result =
        m.ports.accessibility.copyAttributeValue(element, AX::SelectedChildren);
    const auto* selection = result.as<std::vector<ElementRef>>();
    // A Dock that is gone selects nothing any more. Whatever else fails may be read the next time,
    // but its row would stay for good.
    const bool isGone = result.error == platform::AXError::InvalidUIElement;
    if (!selection && !isGone)
        return nullptr;
    if (isGone || selection->empty()) {
        m_dismissal.dockSelectionEnded();
        return nullptr;
    }
    return selection->front();
}

void NotificationIntake::dockSelectionChanged(const ElementRef& element, const HoverDelays* delays)
{
    // A dispatch still pending for the item that was hovered before must never fire.
    m.hovered.cancelDelayed();
    const ElementRef item = selectedItem(element);
    if (!item)
        return;
    const DockItemKind kind = kindOf(item);
    if (kind == DockItemKind::Application || kind == DockItemKind::Calendar) {
        SWElementPtr icon = wrappedItem(m.ports, item, kind == DockItemKind::Calendar);
        if (delays && delays->displayDelay() > 0)
            m.hovered.cancelDelayed();
        dispatch(delays, [this, icon] { m_hover.iconHovered(icon); });
    } else if (kind == DockItemKind::MinimizedWindow) {
        SWElementPtr icon = wrappedItem(m.ports, item, false);
        dispatch(delays, [this, icon] { m_hover.minimizedIconHovered(icon); });
    } else if (const auto application = SWElement::runningAppForProccessListIcon(m.ports, item)) {
        dispatchSwitcherEntry(delays, *application, item);
    } else {
        m_corridor.passAndThen([this] { m_dismissal.mouseExitedToOtherIcon(); });
    }
}

void NotificationIntake::dockFocusChanged(const ElementRef& element, const HoverDelays* delays)
{
    m.hovered.cancelDelayed();
    const ElementRef item = selectedItem(element);
    if (!item)
        return;
    const bool isCalendar = kindOf(item) == DockItemKind::Calendar;
    if (isCalendar || SWElement::checkIfAppIsRunning(m.ports, item)) {
        // A selection made with the keyboard is meant: no delay.
        m_hover.iconHovered(wrappedItem(m.ports, item, isCalendar));
    } else if (const auto application = SWElement::runningAppForProccessListIcon(m.ports, item)) {
        dispatchSwitcherEntry(delays, *application, item);
    } else {
        m_dismissal.mouseExitedToClosedApp();
    }
}

void NotificationIntake::handle(const ElementRef& element, const QString& notification,
                                const HoverDelays* delays)
{
    if (m.settings.disabled)
        return;
    if (notification == AX::WindowCreated) {
        const ServerList list(m.inventory.copyWindowList());
        if (const SWElementPtr window = SWElement::elementWithElementRef(m.ports, element)) {
            const WindowVerdict verdict = m.inventory.processWindow(window, list);
            if (verdict != WindowVerdict::Good)
                qCDebug(log::windows, "a new window of process %d is left out: %s%s",
                        m.ports.accessibility.pidOf(element).value_or(0), plainWords(verdict),
                        qUtf8Printable(log::title(window->getTitle().value_or(QString()))));
        }
    } else if (notification == AX::UIElementDestroyed) {
        if (SWElement::checkIfWindow(m.ports, element))
            m.inventory.removeWindow(element);
    } else if (m.ports.privacy.isAway()) {
        return; // a mouse that moves over a locked screen may be anybody's
    } else if (notification == AX::SelectedChildrenChanged) {
        dockSelectionChanged(element, delays);
    } else if (notification == AX::FocusedUIElementChanged) {
        dockFocusChanged(element, delays);
    } else if (notification == AX::MenuOpened) {
        m_dismissal.menuOpened();
    }
}

} // namespace lumbrix
