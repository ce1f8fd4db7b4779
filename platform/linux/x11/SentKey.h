// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Keys for a program that does not have the focus.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>

namespace lumbrix::platform::x11
{

class Connection;

/// A keyboard shortcut of another program.
struct Shortcut {
    std::int64_t keyCode = -1; ///< virtual
    bool withShift = false;

    bool operator==(const Shortcut&) const = default;
};

/// Sends the keys to the program that created the window as if they were typed into it. No other
/// program sees them, and the focus does not change. False if the window is gone or the keyboard
/// has no such key; the program may ignore sent keys. Any thread; some round trips.
bool sendShortcut(const Connection& connection, xcb_window_t window, const Shortcut& shortcut);

} // namespace lumbrix::platform::x11
