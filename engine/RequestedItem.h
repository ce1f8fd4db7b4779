// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which item, if any, has its row because another program asked for that.
#pragma once

#include <QtCore/QPointF>

#include <optional>
#include <utility>

#include "model/SWElement.h"
#include "platform/Desktop.h"

namespace lumbrix
{

/// Told of the ends of all rows, it tells the port of the end of the one that was asked for. Main
/// thread.
class RequestedItem
{
public:
    /// The ports outlive it.
    explicit RequestedItem(const platform::Desktop& ports) : m_ports(ports) {}

    /// Whether the present row, or one that waits for a key, was asked for.
    bool isUp() const { return m_item != nullptr; }
    const SWElementPtr& item() const { return m_item; } ///< null = the present row was not
    bool is(const platform::ElementRef& item) const;
    /// The item has the row from now on. Returns the one that had it, whose end is not told yet.
    SWElementPtr begin(const SWElementPtr& item) { return std::exchange(m_item, item); }
    /// Where the mouse is, if that is on the former row.
    void setMouseBefore(std::optional<QPointF> mouse) { m_mouseBefore = mouse; }
    /// Whether the mouse rests where a preview of the former row was, which has gone from under it:
    /// that is no leaving.
    bool hasLeftTheMouse() const;
    /// Brings the row up by `hover`; what was there before ends on the way, which is not the end of
    /// this one.
    template <class Action> void bringUp(const Action& hover)
    {
        const SWElementPtr item = std::exchange(m_item, nullptr);
        hover(item);
        m_item = item;
    }
    /// Every row has ended.
    void rowEnded();
    /// From now on the previews belong to this item.
    void itemChanged(const SWElementPtr& item);
    /// Tells the port that the item's row has ended; nothing for a null one.
    void tellEnded(const SWElementPtr& item) const;

private:
    const platform::Desktop& m_ports;
    SWElementPtr m_item;
    std::optional<QPointF> m_mouseBefore;
};

} // namespace lumbrix
