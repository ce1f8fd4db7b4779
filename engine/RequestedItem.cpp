// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/RequestedItem.h"

#include <utility>

#include "platform/InputState.h"
#include "platform/PreviewRequests.h"

namespace lumbrix
{

bool RequestedItem::is(const platform::ElementRef& item) const
{
    return m_item.element && platform::elementsEqual(m_item.element->element(), item);
}

bool RequestedItem::hasLeftTheMouse() const
{
    return isUp() && m_ports.inputState.mouseLocation() == m_mouseBefore;
}

void RequestedItem::rowEnded() { tellEnded(std::exchange(m_item, {})); }

void RequestedItem::itemChanged(const SWElementPtr& item)
{
    if (m_item.element && !m_item.element->isEqualTo(item))
        rowEnded();
}

void RequestedItem::tellEnded(const Item& item) const
{
    if (item.ended)
        item.ended();
    else if (item.element)
        m_ports.previewRequests.rowEnded(item.element->element());
}

} // namespace lumbrix
