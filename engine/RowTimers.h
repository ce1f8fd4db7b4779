// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The timers of the current row.
#pragma once

#include "engine/Timers.h"
#include "model/SWElement.h"
#include "platform/RunLoop.h"

namespace lumbrix
{

/// Each part starts the timers it needs; the part that ends the row stops them all. Main thread.
struct RowTimers {
    platform::TimerPtr exit;      ///< checks whether the mouse has left for good
    platform::TimerPtr exitDelay; ///< waits for some time after that
    platform::TimerPtr tabExit;   ///< watches the switcher while the row belongs to it
    platform::TimerPtr update;
    SWElementPtr updated; ///< the item that `update` was armed for last

    bool isSwitcherWatched() const { return tabExit && tabExit->isValid(); }
    void stopUpdate()
    {
        invalidateTimer(update);
        updated = nullptr;
    }
    void stopExits()
    {
        invalidateTimer(tabExit);
        invalidateTimer(exit);
    }
    /// All except the delay, which ends by itself.
    void stop()
    {
        stopExits();
        stopUpdate();
    }
};

} // namespace lumbrix
