// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The timers of the row that is up.
#pragma once

#include "engine/Timers.h"
#include "model/SWElement.h"
#include "platform/RunLoop.h"

namespace lumbrix
{

/// The part that needs one schedules it; the one that ends the row stops them all. Main thread.
struct RowTimers {
    platform::TimerPtr exit;      ///< looks whether the mouse has left for good
    platform::TimerPtr exitDelay; ///< grants some time after that
    platform::TimerPtr tabExit;   ///< watches the switcher, while the row is its own
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
    /// All but the delay, which ends by itself.
    void stop()
    {
        stopExits();
        stopUpdate();
    }
};

} // namespace lumbrix
