// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/HoverDispatch.h"

#include "engine/HoverRules.h"
#include "model/Modifiers.h"
#include "platform/Log.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{
namespace
{
constexpr platform::Seconds relaxedUpdateInterval = 1.0;

QString nameFor(const platform::RunningApplication& application)
{
    return u"%1 (%2)"_s.arg(application.bundleIdentifier).arg(application.pid);
}

QString nameFor(const std::optional<platform::RunningApplication>& application)
{
    return application ? nameFor(*application) : u"something that does not run"_s;
}

/// Nothing, where there is something to show.
template <class Application> void tellNone(const Application& application, HoverVerdict verdict)
{
    if (verdict != HoverVerdict::Shows)
        qCDebug(log::hover, "no row for %s: %s", qUtf8Printable(nameFor(application)),
                plainWords(verdict));
}
} // namespace

void HoverDispatch::iconHovered(const SWElementPtr& element)
{
    const bool isConfirmed = element && element->isMouseConfirmed();
    const SWElementPtr current = m.hovered.element();
    const bool isRequested = element && element->isRequested(); // the mouse has no part in it
    if (!isRequested && (!element || !element->isEqualTo(current)) && m_corridor.leadsToRow()) {
        m_corridor.waitAndThen([this, element] { iconHovered(element); });
        return;
    }
    // Before the item changes, as one that was asked for is gone then.
    const bool areChosen = element && element->chosenWindows();
    const bool wereOthers = current && (current->isMinimizedIcon() || current->chosenWindows());
    if (!isConfirmed && !isRequested && m.row.previews().size() >= 2 &&
        (!element || !element->isEqualTo(current))) {
        // A row is up and the mouse passes over another icon, perhaps only on its way to the row:
        // wait until it rests.
        qCDebug(log::hover, "the row stays until the mouse rests on the other icon");
        m.hovered.hoverAtRest(element);
        return;
    }
    m.hovered.cancelHoverAtRest(); // of an icon that the mouse only passed
    m.timers.stopExits();
    if (isConfirmed && m_dismissal.checkIfPreviewsAreHovered(false)) {
        qCDebug(log::hover, "the row stays: the mouse is on a preview");
        return;
    }
    m.hovered.setElement(element);
    if (element && element->isCal()) {
        m.companions.calendarPreview->calIconHovered(element);
        return;
    }
    const Application application =
        element ? element->runningApplicationForDockElement() : std::nullopt;
    if (application && !areChosen && m.inventory.standsForOthers(*application)) {
        lumbrixIconHovered(element);
        return;
    }
    if (m.row.belongsTo(application, false) && !wereOthers && !areChosen &&
        HoverRules::verdictForPlace(m.ports.dockPreferences, element) == HoverVerdict::Shows) {
        qCDebug(log::hover, "the row stays: the icon is one of %s",
                qUtf8Printable(nameFor(application)));
        if (!element->isEqualTo(current))
            moveRow(element);
        return;
    }
    m_dismissal.removeAllScreenViews("another icon is hovered");
    const HoverVerdict verdict = HoverRules::verdictBeforeWindows(m.ports.inputState, m.settings);
    tellNone(application, verdict);
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
    m.row.arranger().arrangeWindows(element, false);
    m.row.updateMore();
    m.timers.stopUpdate();
    armUpdateTimer(element);
}

void HoverDispatch::showPreviewsForApplication(const platform::RunningApplication& application,
                                               const SWElementPtr& element)
{
    m.inventory.cleanWindowsArray();
    const auto windows = m.inventory.windowsBehindItem(*element, application);
    const bool areChosen = element->chosenWindows().has_value();
    const HoverVerdict verdict =
        HoverRules::verdictForWindows(m.ports.inputState, m.settings, windows.size(), areChosen);
    tellNone(application, verdict);
    if (verdict == HoverVerdict::Shows)
        showPreviews(windows, application, element);
}

void HoverDispatch::showPreviews(const std::vector<SWElementPtr>& windows,
                                 const Application& application, const SWElementPtr& element)
{
    const HoverVerdict verdict = HoverRules::verdictForPlace(m.ports.dockPreferences, element);
    tellNone(application, verdict);
    if (verdict != HoverVerdict::Shows)
        return;
    qCDebug(log::hover, "a row for %s, of %zu windows", qUtf8Printable(nameFor(application)),
            windows.size());
    m.hovered.setShouldInstantShow(true);
    m.companions.hotKeyCenter->toggleEventTap(true);
    m.row.append(windows, application, false);
    m.row.arranger().arrangeWindows(element, false);
    m.row.bringOut();
}

void HoverDispatch::lumbrixIconHovered(const SWElementPtr& element)
{
    const EngineSettings& settings = m.settings;
    m.timers.stopExits();
    const Application application =
        element ? element->runningApplicationForDockElement() : std::nullopt;
    m_dismissal.removeAllScreenViews("another icon is hovered");
    // The same rules as in the update, which would take back half a second later what they forbid.
    const HoverVerdict verdict = HoverRules::verdictBeforeWindows(m.ports.inputState, settings);
    tellNone(application, verdict);
    if (verdict == HoverVerdict::DockPreviewsOff)
        return;
    if (application && verdict == HoverVerdict::Shows) {
        m.inventory.cleanWindowsArray();
        const auto windows = m.inventory.windowsBehindIcon(*application);
        const HoverVerdict forWindows =
            HoverRules::verdictForWindows(m.ports.inputState, settings, windows.size(), true);
        tellNone(application, forWindows);
        if (forWindows == HoverVerdict::Shows)
            showPreviews(windows, application, element);
    }
    armUpdateTimer(element);
}

void HoverDispatch::minimizedIconHovered(const SWElementPtr& element)
{
    const SWElementPtr current = m.hovered.element();
    if ((!element || !element->isEqualTo(current)) && m_corridor.leadsToRow()) {
        m_corridor.waitAndThen([this, element] { minimizedIconHovered(element); });
        return;
    }
    m.hovered.cancelHoverAtRest();
    m.hovered.setElement(element);
    m.timers.stopExits();
    const SWElementPtr window = element ? m.inventory.windowForMinimizedIcon(*element) : nullptr;
    if (!window)
        return;
    element->setIsMinimizedIcon(true);
    // A row that only begins with this window is the whole application's, and belongs to another
    // button of a task bar; so may a preview of this window alone.
    const auto& previews = m.row.previews();
    if (previews.size() == 1 && window->isEqualTo(previews.front()->elementRef()) &&
        element->isEqualTo(current))
        return;
    m_dismissal.removeAllScreenViews("a minimised window's icon is hovered");
    if (!m.settings.showInDock ||
        HoverRules::verdictForPlace(m.ports.dockPreferences, element) != HoverVerdict::Shows)
        return;
    m.hovered.setShouldInstantShow(true);
    m.companions.hotKeyCenter->toggleEventTap(true);
    const ScreenyViewPtr preview =
        m.row.append(window, window->runningApplicationForWindow(), false);
    m.row.arranger().arrangeWindows(element, false);
    m.row.pictures().loadMissing();
    if (preview) {
        preview->showSpaces();
        const EngineSettings& settings = m.settings;
        // With the key held the preview exists but stays unshown; the next update drops it.
        if (!settings.hidePreviews ||
            !isModifierHeld(m.ports.inputState, settings.hidePreviewsKeycode)) {
            preview->orderFront();
            preview->setShortcut();
        }
    }
    m.row.pictures().showWhenComplete();
    armUpdateTimer(element);
}

void HoverDispatch::armUpdateTimer(const SWElementPtr& element)
{
    m_updater.armUpdateTimer(
        m.settings.neverClose ? relaxedUpdateInterval : PreviewUpdater::updateInterval, element);
}

} // namespace lumbrix
