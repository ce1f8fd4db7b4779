// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Whether the user's desktop is light or dark.
#pragma once

#include <functional>
#include <optional>

namespace lumbrix::platform
{

/// Main thread.
class DesktopLook
{
public:
    virtual ~DesktopLook() = default;
    /// Null where nothing tells; an adapter that has to ask may tell a moment later.
    virtual std::optional<bool> isDark() = 0;
    /// Calls back when the answer may be another, until it is set again, or to nothing.
    virtual void setObserver(std::function<void()> changed) = 0;
};

} // namespace lumbrix::platform
