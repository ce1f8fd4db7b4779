// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/RunLoop.h"

namespace lumbrix
{

/// Invalidates and forgets a timer if it is valid; harmless otherwise. Main thread.
inline void invalidateTimer(platform::TimerPtr& timer)
{
    if (!timer || !timer->isValid())
        return;
    timer->invalidate();
    timer = nullptr;
}

} // namespace lumbrix
