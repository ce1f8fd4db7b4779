// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Why a window is or is not previewed.
#pragma once

#include <cstdint>

namespace lumbrix
{

/// The first rule that prevents a preview of the window, in the order of the checks.
enum class WindowVerdict : std::uint8_t {
    Good, ///< no rule does

    // Matching with the window server. The candidate that passes most checks counts.
    NoAnswer,       ///< the application is busy; a window that was known before stays known
    Unreadable,     ///< it has no position and size, or is gone
    NoProcess,      ///< nobody owns it
    NoServerWindow, ///< the window server has no window of that process or number
    NoOrdinaryLayer,
    NoSameFrame, ///< none of its windows has that position and size
    TooSmall,
    Untitled,
    NoSameTitle,

    // Whether it is a window to the user.
    OtherOwner,     ///< it belongs to another application than when it was matched
    BlockedByLevel, ///< its application's filter level drops every window
    ClosedToServer, ///< its application lists it, but it is on no Space
    NoWindowRole,
    FloatingAtLevel, ///< its application's filter level drops windows of that subrole
    NoContent,       ///< not a standard window, and it has no children

    // The inventory.
    NotScanned,   ///< its application is not shown in the Dock
    NumberListed, ///< another element is known for the same window-server window

    // The visibility settings.
    ApplicationHidden,
    Minimized,

    BeyondMost, ///< the maximum number of previews is reached
};

/// For the log.
const char* plainWords(WindowVerdict verdict);

} // namespace lumbrix
