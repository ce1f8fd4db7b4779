// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The place where the toolkit puts status items: a menu bar, a panel's tray.
#pragma once

#include <functional>

namespace lumbrix::platform
{

/// Main thread.
class StatusBar
{
public:
    virtual ~StatusBar() = default;
    /// Whether there is such a place now. A status item that is made without one may never show;
    /// one that was made with one comes back by itself when the place goes and comes.
    virtual bool isAvailable() const = 0;
    /// Calls back after each change of the answer, until it is set again, or to nothing.
    virtual void setObserver(std::function<void()> changed) = 0;
};

} // namespace lumbrix::platform
