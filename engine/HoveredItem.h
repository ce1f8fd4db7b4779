// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The Dock item that the previews belong to, and whatever is hovered and still to come up.
#pragma once

#include <functional>
#include <optional>
#include <utility>

#include "engine/MouseChecker.h"
#include "engine/RequestedItem.h"
#include "model/SWElement.h"
#include "platform/Desktop.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"

namespace lumbrix
{

/// Main thread.
class HoveredItem
{
public:
    /// `hover` shows what an item has to show, and outlives the program's threads. So do the ports.
    HoveredItem(const platform::Desktop& ports, HoverAction hover)
        : m_ports(ports), m_hover(std::move(hover)), m_requested(ports)
    {
    }
    ~HoveredItem();

    /// Null while there are none, or those of the switcher.
    const SWElementPtr& element() const { return m_element; }
    void setElement(const SWElementPtr& element);
    /// Previews were up for the mouse since it last left the Dock: what it hovers next need not
    /// wait.
    bool shouldInstantShow() const { return m_shouldInstantShow; }
    void setShouldInstantShow(bool on) { m_shouldInstantShow = on; }

    /// Hovers the item once the mouse rests, in place of the one that waited for that.
    void hoverAtRest(const SWElementPtr& element);
    void cancelHoverAtRest();
    /// Something that the hover delay keeps back.
    void performAfterDelay(platform::Seconds delay, std::function<void()> action);
    void cancelDelayed();
    /// Whatever is hovered, and would come up later, does not: after the hover delay, once the
    /// mouse rests, or when a calendar has been read.
    void cancelPending();

    /// What a window of the item's row belongs to: chosen windows may be of any application.
    std::optional<platform::RunningApplication>
    applicationOf(const SWElement& window,
                  const std::optional<platform::RunningApplication>& application) const;

    RequestedItem& requested() { return m_requested; }
    const RequestedItem& requested() const { return m_requested; }
    /// There is something to show for the present request: without the mouse, which need not be
    /// near.
    void hoverRequested() { m_requested.bringUp(m_hover); }

private:
    const platform::Desktop& m_ports;
    const HoverAction m_hover;
    SWElementPtr m_element;
    bool m_shouldInstantShow = false;
    platform::ThreadPtr m_mouseChecker;
    RequestedItem m_requested;
};

} // namespace lumbrix
