// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which item, if any, has its row because that was asked for: by another program, or by a key.
#pragma once

#include <QtCore/QPointF>

#include <functional>
#include <optional>
#include <utility>

#include "model/SWElement.h"
#include "platform/Desktop.h"

namespace lumbrix
{

/// Told of the ends of all rows, it tells who asked of the end of the one that was asked for. Main
/// thread.
class RequestedItem
{
public:
    /// The ports must outlive it.
    explicit RequestedItem(const platform::Desktop& ports) : m_ports(ports) {}

    /// Whether the present row, or one that waits for a key, was asked for.
    bool isUp() const { return m_item.element != nullptr; }
    const SWElementPtr& item() const { return m_item.element; } ///< null = the present row was not
    bool is(const platform::ElementRef& item) const;
    /// What has the row, and whom to tell of its end; where that is null, the port.
    struct Item {
        SWElementPtr element;
        std::function<void()> ended;
    };
    /// The item has the row from now on. Returns the one that had it, whose end is not told yet.
    Item begin(Item item) { return std::exchange(m_item, std::move(item)); }
    /// Where the mouse is, if that is on the former row.
    void setMouseBefore(std::optional<QPointF> mouse) { m_mouseBefore = mouse; }
    /// True while the mouse has not moved since a preview of the former row disappeared from under
    /// it. The mouse has then not left the row.
    bool hasLeftTheMouse() const;
    /// Calls `hover` to show the row. The former row ends during the call; that is not taken for
    /// the end of this one.
    template <class Action> void bringUp(const Action& hover)
    {
        Item item = std::exchange(m_item, {});
        hover(item.element);
        m_item = std::move(item);
    }
    /// Every row has ended.
    void rowEnded();
    /// The previews belong to this item from now on.
    void itemChanged(const SWElementPtr& item);
    /// Tells that the item's row has ended; nothing for a null one.
    void tellEnded(const Item& item) const;

private:
    const platform::Desktop& m_ports;
    Item m_item;
    std::optional<QPointF> m_mouseBefore;
};

} // namespace lumbrix
