// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Previews that other programs ask for, beside a place of their own choice.
#pragma once

#include <cstdint>

#include "platform/Accessibility.h"

namespace lumbrix::platform
{

/// Main thread, in both directions. The place is a Dock item that no Dock has: it can be read like
/// any other until its row has ended or was refused. One that stands for chosen windows, instead of
/// an application as a whole, has them as its "AXWindows", in the order of their previews.
class PreviewRequests
{
public:
    enum class Answer : std::uint8_t {
        Accepted,      ///< its row is up, or comes up once a key is held or let go
        Disabled,      ///< the user has turned previews off
        NothingToShow, ///< no window that the user's settings let in
    };

    /// The part that shows previews. There is one row at a time.
    class Host
    {
    public:
        virtual ~Host() = default;
        /// Puts the item's row in the place of any other. When it is refused, what is on the screen
        /// stays. No method does anything for an item whose row has ended.
        virtual Answer show(const ElementRef& item) = 0;
        virtual void hide(const ElementRef& item) = 0;
        /// The mouse was on the item and is no more: as when it leaves an icon of the Dock.
        virtual void mouseLeft(const ElementRef& item) = 0;
        /// Its caller has gone: the row goes, from under the mouse only when that leaves.
        virtual void abandon(const ElementRef& item) = 0;
    };

    virtual ~PreviewRequests() = default;
    /// Null = requests are refused. Not owned.
    virtual void setHost(Host* host) = 0;
    /// The row of an accepted item has ended, for whatever reason; told once, and not for one that
    /// was refused. Does not call the host.
    virtual void rowEnded(const ElementRef& item) = 0;
};

} // namespace lumbrix::platform
