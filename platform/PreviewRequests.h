// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Previews that other programs request, beside a rectangle of their choice.
#pragma once

#include <cstdint>

#include "platform/Accessibility.h"

namespace lumbrix::platform
{

/// Main thread, in both directions. The rectangle is represented by a Dock item that belongs to no
/// Dock; it can be read like any other until its row has ended or was refused. An item for chosen
/// windows, instead of a whole application, has them as its "AXWindows", in the order of their
/// previews.
class PreviewRequests
{
public:
    enum class Answer : std::uint8_t {
        Accepted,      ///< its row is shown, or will be when a key is pressed or released
        Disabled,      ///< the user has turned previews off
        NothingToShow, ///< no window that the user's settings allow
    };

    /// Implemented by the part that shows previews. There is one row at a time.
    class Host
    {
    public:
        virtual ~Host() = default;
        /// Shows the item's row instead of any other. If it is refused, the screen does not change.
        /// All methods do nothing for an item whose row has ended.
        virtual Answer show(const ElementRef& item) = 0;
        virtual void hide(const ElementRef& item) = 0;
        /// The mouse has left the item; handled as for an icon of the Dock.
        virtual void mouseLeft(const ElementRef& item) = 0;
        /// The caller has gone: the row is removed, but if the mouse is on it only when the mouse
        /// leaves.
        virtual void abandon(const ElementRef& item) = 0;
    };

    virtual ~PreviewRequests() = default;
    /// Null = all requests are refused. Not owned.
    virtual void setHost(Host* host) = 0;
    /// The row of an accepted item has ended, for any reason. Called once, and not for a refused
    /// item. Does not call the host.
    virtual void rowEnded(const ElementRef& item) = 0;
};

} // namespace lumbrix::platform
