// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/RequestedRow.h"

#include <utility>

#include "engine/HoverRules.h"
#include "engine/LXHandler.h"
#include "model/Modifiers.h"
#include "platform/Desktop.h"
#include "platform/InputState.h"

namespace lumbrix
{
namespace
{

QPointF mouseLocation() { return platform::desktop().inputState.mouseLocation(); }

} // namespace

RequestedRow::~RequestedRow()
{
    if (m_takesRequests)
        platform::desktop().previewRequests.setHost(nullptr);
}

void RequestedRow::setUp()
{
    m_takesRequests = true;
    platform::desktop().previewRequests.setHost(this);
}

bool RequestedRow::isItem(const platform::ElementRef& item) const
{
    return m_element && platform::elementsEqual(m_element->element(), item);
}

RequestedRow::Answer RequestedRow::judge(const SWElement& element) const
{
    const EngineSettings& settings = m_handler.settings();
    if (settings.disabled)
        return Answer::Disabled;
    if (element.isCal()) {
        // Today's events may come later. They wait for no key, and one that hides windows has them.
        const bool isKept =
            (settings.hidePreviews && !isModifierHeld(settings.hidePreviewsKeycode)) ||
            (settings.onlyIfPressed && !isModifierHeld(settings.onlyIfKeycode));
        return isKept ? Answer::NothingToShow : Answer::Accepted;
    }
    if (!settings.showInDock)
        return Answer::Disabled;
    const auto application = element.runningApplicationForDockElement();
    if (!application)
        return Answer::NothingToShow;
    m_handler.inventory().cleanWindowsArray();
    const auto windows = m_handler.inventory().windowsBehindItem(element, *application);
    const bool areOthers =
        m_handler.inventory().standsForOthers(*application) || element.chosenWindows();
    const HoverVerdict verdict = HoverRules::verdictForWindows(settings, windows.size(), areOthers);
    return verdict == HoverVerdict::NoWindows || verdict == HoverVerdict::OneWindow
               ? Answer::NothingToShow
               : Answer::Accepted;
}

RequestedRow::Answer RequestedRow::show(const platform::ElementRef& item)
{
    LXHandler& engine = m_handler;
    const SWElementPtr element = SWElement::elementWithElementRef(item);
    if (!element)
        return Answer::NothingToShow;
    element->setIsRequested(true);
    element->setIsCal(kindOfDockItem(item, engine.companions().calendarPreview->shouldShowCal()) ==
                      DockItemKind::Calendar);
    if (const Answer answer = judge(*element); answer != Answer::Accepted)
        return answer;
    // What is under way for the mouse would take the place of this, which is meant.
    platform::desktop().runLoop.cancelPreviousPerformRequests(&engine);
    engine.cancelMouseChecker();
    engine.invalidateExitDelayTimer();
    if (element->isCal())
        engine.removeAllScreenViews(); // one that shows events already would not move
    const SWElementPtr former = std::exchange(m_element, element);
    if (engine.checkIfPreviewsAreHovered(false))
        m_mouseBefore = mouseLocation();
    else
        m_mouseBefore.reset();
    bringUp();
    if (former)
        platform::desktop().previewRequests.rowEnded(former->element());
    return Answer::Accepted;
}

void RequestedRow::bringUp()
{
    // What was there before ends on the way, which is not the end of this one.
    const SWElementPtr element = std::exchange(m_element, nullptr);
    m_handler.iconHovered(element);
    m_element = element;
}

void RequestedRow::hide(const platform::ElementRef& item)
{
    if (!isItem(item))
        return;
    m_handler.cancelPendingHover();
    m_handler.removeAllScreenViewsNOW();
}

void RequestedRow::mouseLeft(const platform::ElementRef& item)
{
    if (isItem(item))
        m_handler.letGoOfRow();
}

void RequestedRow::abandon(const platform::ElementRef& item)
{
    if (!isItem(item))
        return;
    if (m_handler.checkIfPreviewsAreHovered(true))
        m_handler.letGoOfRow();
    else
        hide(item);
}

bool RequestedRow::hasLeftTheMouse() const { return isUp() && mouseLocation() == m_mouseBefore; }

void RequestedRow::rowEnded()
{
    if (const SWElementPtr element = std::exchange(m_element, nullptr))
        platform::desktop().previewRequests.rowEnded(element->element());
}

void RequestedRow::itemChanged(const SWElementPtr& item)
{
    if (m_element && !m_element->isEqualTo(item))
        rowEnded();
}

void RequestedRow::endIfEmpty()
{
    if (m_element && m_handler.screenyViews().empty() &&
        !HoverRules::waitsForKey(m_handler.settings()))
        hide(platform::ElementRef(m_element->element()));
}

} // namespace lumbrix
