// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where the toolkit puts status items: a menu bar, a panel's tray.
#pragma once

#include <functional>

namespace lumbrix::platform
{

/// Main thread.
class StatusBar
{
public:
    virtual ~StatusBar() = default;
    /// Whether there is a status bar now. A status item that is created without one may never
    /// appear; one created with it reappears by itself when the status bar ends and starts again.
    virtual bool isAvailable() const = 0;
    /// Called after each change of isAvailable(). Replaces the former observer; empty for none.
    virtual void setObserver(std::function<void()> changed) = 0;
};

} // namespace lumbrix::platform
