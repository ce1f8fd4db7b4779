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

/// Has the program that made the window take the keys for typed into it. Nothing else sees them,
/// and the focus stays where it is. False when the window is gone or the keyboard has no such key;
/// whether the program heeds keys that nobody typed is its own affair. Any thread; some round
/// trips.
bool sendShortcut(const Connection& connection, xcb_window_t window, const Shortcut& shortcut);

} // namespace lumbrix::platform::x11
