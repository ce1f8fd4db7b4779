// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/NotificationIntake.h"

#include "engine/HoverDelays.h"
#include "engine/HoverRules.h"
#include "engine/LXHandler.h"
#include "model/AXRead.h"
#include "platform/Desktop.h"
#include "platform/RunLoop.h"

namespace lumbrix
{
namespace
{

using platform::ElementRef;

/// Runs a dispatch now, or after the hover delay on the engine's behalf. The delay is for the first
/// previews only, when the user wants later ones at once.
void dispatch(LXHandler& handler, const HoverDelays* delays, std::function<void()> action)
{
    const float delay = delays ? delays->displayDelay() : 0;
    const bool isOpen = handler.shouldInstantShow() || !handler.screenyViews().empty();
    if (!(delay > 0) || (delays->dontDelayIfOpen() != 0 && isOpen))
        action();
    else
        platform::desktop().runLoop.performAfterDelay(&handler, static_cast<double>(delay),
                                                      std::move(action));
}

void cancelDelayedDispatches(LXHandler& handler)
{
    platform::desktop().runLoop.cancelPreviousPerformRequests(&handler);
}

DockItemKind kindOf(LXHandler& handler, const ElementRef& item)
{
    return kindOfDockItem(item, handler.companions().calendarPreview->shouldShowCal());
}

SWElementPtr wrappedItem(const ElementRef& item, bool isCalendar)
{
    SWElementPtr element = SWElement::elementWithElementRef(item);
    if (isCalendar)
        element->setIsCal(true);
    return element;
}

void dispatchSwitcherEntry(LXHandler& handler, const HoverDelays* delays,
                           const platform::RunningApplication& application, const ElementRef& item)
{
    SWElementPtr element = SWElement::elementWithElementRef(item);
    dispatch(handler, delays, [&handler, application, element] {
        handler.processListIconHovered(application, element);
    });
}

/// The selected item; null when the selection is empty, which has then been dealt with, or could
/// not be read.
ElementRef selectedItem(LXHandler& handler, const ElementRef& element)
{
    const platform::AXResult result =
        platform::desktop().accessibility.copyAttributeValue(element, AX::SelectedChildren);
    const auto* selection = result.as<std::vector<ElementRef>>();
    // A Dock that is gone selects nothing any more. Whatever else fails may be read the next time,
    // but its row would stay for good.
    const bool isGone = result.error == platform::AXError::InvalidUIElement;
    if (!selection && !isGone)
        return nullptr;
    if (isGone || selection->empty()) {
        handler.dockSelectionEnded();
        return nullptr;
    }
    return selection->front();
}

void dockSelectionChanged(LXHandler& handler, const ElementRef& element, const HoverDelays* delays)
{
    // A dispatch still pending for the item that was hovered before must never fire.
    cancelDelayedDispatches(handler);
    const ElementRef item = selectedItem(handler, element);
    if (!item)
        return;
    const DockItemKind kind = kindOf(handler, item);
    if (kind == DockItemKind::Application || kind == DockItemKind::Calendar) {
        SWElementPtr icon = wrappedItem(item, kind == DockItemKind::Calendar);
        if (delays && delays->displayDelay() > 0)
            cancelDelayedDispatches(handler);
        dispatch(handler, delays, [&handler, icon] { handler.iconHovered(icon); });
    } else if (kind == DockItemKind::MinimizedWindow) {
        SWElementPtr icon = wrappedItem(item, false);
        dispatch(handler, delays, [&handler, icon] { handler.minimizedIconHovered(icon); });
    } else if (const auto application = SWElement::runningAppForProccessListIcon(item)) {
        dispatchSwitcherEntry(handler, delays, *application, item);
    } else {
        handler.mouseExitedToOtherIcon();
    }
}

void dockFocusChanged(LXHandler& handler, const ElementRef& element, const HoverDelays* delays)
{
    cancelDelayedDispatches(handler);
    const ElementRef item = selectedItem(handler, element);
    if (!item)
        return;
    const bool isCalendar = kindOf(handler, item) == DockItemKind::Calendar;
    if (isCalendar || SWElement::checkIfAppIsRunning(item)) {
        // A selection made with the keyboard is meant: no delay.
        handler.iconHovered(wrappedItem(item, isCalendar));
    } else if (const auto application = SWElement::runningAppForProccessListIcon(item)) {
        dispatchSwitcherEntry(handler, delays, *application, item);
    } else {
        handler.mouseExitedToClosedApp();
    }
}

} // namespace

void handleAXNotification(platform::AXObserver&, const ElementRef& element,
                          const QString& notification, platform::NotificationContext* context)
{
    LXHandler& handler = LXHandler::sharedHandler();
    if (handler.settings().disabled)
        return;
    const auto* delays = dynamic_cast<const HoverDelays*>(context);
    if (notification == AX::WindowCreated) {
        const platform::WindowList list = WindowInventory::copyWindowList();
        if (const SWElementPtr window = SWElement::elementWithElementRef(element))
            handler.inventory().processWindow(window, list);
    } else if (notification == AX::UIElementDestroyed) {
        if (SWElement::checkIfWindow(element))
            handler.inventory().removeWindow(element);
    } else if (notification == AX::SelectedChildrenChanged) {
        dockSelectionChanged(handler, element, delays);
    } else if (notification == AX::FocusedUIElementChanged) {
        dockFocusChanged(handler, element, delays);
    } else if (notification == AX::MenuOpened) {
        handler.menuOpened();
    }
}

} // namespace lumbrix
