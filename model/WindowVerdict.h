// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a window's way to a preview ends at.
#pragma once

#include <cstdint>

namespace lumbrix
{

/// The first rule that keeps a window from being previewed, in the order in which they are asked.
enum class WindowVerdict : std::uint8_t {
    Good, ///< none does

    // Matching with the window server. Of its windows, the one that came furthest counts.
    NoAnswer,       ///< the application is busy; one that was known before stays known
    Unreadable,     ///< it has no place and size, or is gone
    NoProcess,      ///< nobody owns it
    NoServerWindow, ///< the window server has no window of that process, or of that number
    NoOrdinaryLayer,
    NoSameFrame, ///< none of its windows has that place and size
    TooSmall,
    Untitled,
    NoSameTitle,

    // Whether it is a window to the user.
    OtherOwner,     ///< another application has it than when it was matched
    BlockedByLevel, ///< its application's filter level drops every window
    ClosedToServer, ///< its application keeps it, but no Space has it
    NoWindowRole,
    FloatingAtLevel, ///< its application's filter level drops windows of that subrole
    NoContent,       ///< no standard window, and nothing in it

    // The inventory.
    NotScanned,   ///< its application shows in no Dock
    NumberListed, ///< another element is known for the same window-server window

    // The visibility settings.
    ApplicationHidden,
    Minimized,

    BeyondMost, ///< there are as many previews as fit
};

/// For the log.
const char* plainWords(WindowVerdict verdict);

} // namespace lumbrix
