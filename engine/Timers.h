// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/RunLoop.h"

namespace lumbrix
{

/// Invalidates a valid timer and resets the pointer; otherwise does nothing. Main thread.
inline void invalidateTimer(platform::TimerPtr& timer)
{
    if (!timer || !timer->isValid())
        return;
    timer->invalidate();
    timer = nullptr;
}

} // namespace lumbrix
