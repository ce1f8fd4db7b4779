// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/SwitcherWatch.h"

#include <vector>

#include "engine/HitTest.h"
#include "engine/HoverRules.h"
#include "platform/Log.h"

namespace lumbrix
{
namespace
{
constexpr platform::Seconds tabExitInterval = 0.1f;
/// The switcher needs this long to settle on another entry.
constexpr platform::Seconds switcherSettleTime = 0.2f;
} // namespace

void SwitcherWatch::processListIconHovered(const Application& application,
                                           const SWElementPtr& element)
{
    // Dismissal must not mistake a switcher entry's rectangle for that of a hovered Dock item.
    m.hovered.setElement(nullptr);
    if (element)
        element->setIsTabIcon(true);
    if (!m.settings.showInTab) {
        m_dismissal.removeAllScreenViews("previews in the switcher are turned off");
        return;
    }
    if (m.row.belongsTo(application, true)) {
        // A switcher that lists each window has gone to another one of the same application.
        m.row.arranger().markOwnWindow(element);
        m.timers.stopUpdate();
        watch(element);
        return;
    }
    m_dismissal.removeAllScreenViews("the switcher selects another application");
    m.inventory.cleanWindowsArray();
    const auto windows =
        application ? m.inventory.windowsForPID(application->pid) : std::vector<SWElementPtr>{};
    const HoverVerdict verdict = HoverRules::verdictInSwitcher(m.settings, windows.size());
    qCDebug(log::hover, "the switcher selects process %d: %s", application ? application->pid : 0,
            plainWords(verdict));
    if (verdict == HoverVerdict::Shows) {
        m.hovered.setShouldInstantShow(true);
        m.row.append(windows, application, true);
        m.companions.hotKeyCenter->toggleEventTap(true);
        // The switcher is in the middle of the screen, so its previews go to the bottom whatever
        // the Dock's side.
        m.row.arranger().arrangeWindowsBottom(element, false);
        m.row.bringOut();
    }
    m_restingMouse = m.ports.inputState.mouseLocation();
    m_leftMouseDowns = m.ports.inputState.leftMouseDowns();
    watch(element);
}

void SwitcherWatch::watch(const SWElementPtr& entry)
{
    m_updater.armUpdateTimer(PreviewUpdater::updateInterval, entry);
    invalidateTimer(m.timers.tabExit);
    m.timers.tabExit = m.ports.runLoop.scheduleTimer(tabExitInterval, true,
                                                     [this, entry] { tabExitCheck(entry); });
}

void SwitcherWatch::tabExitCheck(const SWElementPtr& entry)
{
    if (SWElement::checkIfDockFocusedIsAXList(m.ports)) {
        followSwitcher(entry);
        const QPointF mouse = m.ports.inputState.mouseLocation();
        const bool isUsed = isMouseUsed();
        const auto previews = m.row.previews();
        for (const ScreenyViewPtr& preview : previews)
            trackHover(*preview, isUsed && contains(frameOf(*preview), mouse));
        return;
    }
    // The switcher has closed. If the mouse is on a preview, that chooses its window.
    m.hovered.setShouldInstantShow(false);
    if (isMouseUsed())
        m_dismissal.shouldInterceptClick(true, true);
    m_dismissal.removeAllScreenViews("the switcher has closed");
}

// A user who switches with the keyboard does not move the mouse, and the row may appear under it.
// That must not activate another window than the selected one. A click is meant, though a switcher
// that holds the mouse keeps it from the preview, and closes.
bool SwitcherWatch::isMouseUsed()
{
    platform::InputState& input = m.ports.inputState;
    if (m_restingMouse != input.mouseLocation() || m_leftMouseDowns != input.leftMouseDowns())
        m_restingMouse.reset();
    return !m_restingMouse;
}

void SwitcherWatch::followSwitcher(const SWElementPtr& entry)
{
    if (!entry || !entry->isTabIcon())
        return;
    const SWElementPtr selected = SWElement::getDockSelectedChild(m.ports);
    if (!selected || selected->isEqualTo(entry) || entry->willBeChanged())
        return;
    const auto application = SWElement::runningAppForProccessListIcon(m.ports, selected->element());
    if (!application)
        return;
    // Deliberately blocks the main thread: nothing useful can be shown while the switcher is
    // changing.
    m.ports.runLoop.sleep(switcherSettleTime);
    if (m_delays && m_delays->displayDelay() > 0) {
        m.hovered.cancelDelayed();
        entry->setWillBeChanged(true); // later checks must not start the same change again
        if (!m_delays->dontDelayIfOpen() || m.row.isEmpty()) {
            m.hovered.performAfterDelay(
                static_cast<double>(m_delays->displayDelay()),
                [this, application, selected] { processListIconHovered(application, selected); });
            return;
        }
    }
    processListIconHovered(application, selected);
}

} // namespace lumbrix
