// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/HoveredItem.h"

namespace lumbrix
{

HoveredItem::~HoveredItem()
{
    cancelHoverAtRest();
    cancelDelayed();
}

void HoveredItem::setElement(const SWElementPtr& element)
{
    m_element = element;
    m_requested.itemChanged(element);
}

std::optional<platform::RunningApplication>
HoveredItem::applicationOf(const SWElement& window,
                           const std::optional<platform::RunningApplication>& application) const
{
    return m_element && m_element->chosenWindows() ? window.runningApplicationForWindow()
                                                   : application;
}

void HoveredItem::hoverAtRest(const SWElementPtr& element)
{
    cancelHoverAtRest();
    m_mouseChecker =
        m_ports.runLoop.makeThread("mouse-checker", [this, element](const platform::Thread& self) {
            mouseChecker(m_ports, m_hover, element, self);
        });
    m_mouseChecker->start();
}

void HoveredItem::cancelHoverAtRest()
{
    if (m_mouseChecker)
        m_mouseChecker->cancel();
}

void HoveredItem::performAfterDelay(platform::Seconds delay, std::function<void()> action)
{
    m_ports.runLoop.performAfterDelay(this, delay, std::move(action));
}

void HoveredItem::cancelDelayed() { m_ports.runLoop.cancelPreviousPerformRequests(this); }

void HoveredItem::cancelPending()
{
    cancelDelayed();
    cancelHoverAtRest();
    setElement(nullptr);
    setShouldInstantShow(false);
}

} // namespace lumbrix
