// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/RequestedRow.h"

#include "engine/HitTest.h"
#include "engine/HoverRules.h"
#include "model/Modifiers.h"
#include "platform/Privacy.h"

namespace lumbrix
{

RequestedRow::~RequestedRow()
{
    if (m_takesRequests)
        m.ports.previewRequests.setHost(nullptr);
}

void RequestedRow::setUp()
{
    m_takesRequests = true;
    m.ports.previewRequests.setHost(this);
}

RequestedRow::Answer RequestedRow::judge(const SWElement& element) const
{
    const EngineSettings& settings = m.settings;
    if (settings.disabled || m.ports.privacy.isAway())
        return Answer::Disabled;
    if (element.isCal()) {
        // Today's events may still be loading, so they are not checked. A row of events never waits
        // for a key: if one that is required now is not held, the request is refused. With a key
        // that hides window previews, that key is required, as it shows the events instead.
        const bool isKept =
            (settings.hidePreviews &&
             !isModifierHeld(m.ports.inputState, settings.hidePreviewsKeycode)) ||
            (settings.onlyIfPressed && !isModifierHeld(m.ports.inputState, settings.onlyIfKeycode));
        return isKept ? Answer::NothingToShow : Answer::Accepted;
    }
    if (!settings.showInDock)
        return Answer::Disabled;
    const auto application = element.runningApplicationForDockElement();
    if (!application)
        return Answer::NothingToShow;
    m.inventory.cleanWindowsArray();
    const auto windows = m.inventory.windowsBehindItem(element, *application);
    const bool areOthers = m.inventory.standsForOthers(*application) || element.chosenWindows();
    const HoverVerdict verdict =
        HoverRules::verdictForWindows(m.ports.inputState, settings, windows.size(), areOthers);
    return verdict == HoverVerdict::NoWindows || verdict == HoverVerdict::OneWindow
               ? Answer::NothingToShow
               : Answer::Accepted;
}

RequestedRow::Answer RequestedRow::show(const platform::ElementRef& item)
{
    const SWElementPtr element = SWElement::elementWithElementRef(m.ports, item);
    if (!element)
        return Answer::NothingToShow;
    element->setIsCal(
        kindOfDockItem(m.ports, item, m.companions.calendarPreview->shouldShowCal()) ==
        DockItemKind::Calendar);
    return bringUp(element, nullptr);
}

RequestedRow::Answer RequestedRow::bringUp(const SWElementPtr& element, std::function<void()> ended)
{
    element->setIsRequested(true);
    if (const Answer answer = judge(*element); answer != Answer::Accepted)
        return answer;
    // A hover that is still pending would replace this row, which was asked for explicitly.
    m.hovered.cancelDelayed();
    m.hovered.cancelHoverAtRest();
    invalidateTimer(m.timers.exitDelay);
    if (element->isCal())
        m_dismissal.removeAllScreenViews(
            "events were asked for"); // one that shows events already would not move
    const auto former = m.hovered.requested().begin({element, std::move(ended)});
    const bool isOnFormer = m_dismissal.checkIfPreviewsAreHovered(false);
    m.hovered.requested().setMouseBefore(
        isOnFormer ? std::optional(m.ports.inputState.mouseLocation()) : std::nullopt);
    m.hovered.hoverRequested();
    m.hovered.requested().tellEnded(former);
    return Answer::Accepted;
}

void RequestedRow::hide(const platform::ElementRef& item)
{
    if (m.hovered.requested().is(item))
        m_dismissal.endAtOnce("who asked for it has taken it back");
}

void RequestedRow::mouseLeft(const platform::ElementRef& item)
{
    if (m.hovered.requested().is(item))
        m_dismissal.letGo();
}

void RequestedRow::abandon(const platform::ElementRef& item)
{
    if (!m.hovered.requested().is(item))
        return;
    if (m_dismissal.checkIfPreviewsAreHovered(true))
        m_dismissal.letGo();
    else
        m_dismissal.endAtOnce("who asked for it is gone");
}

} // namespace lumbrix
