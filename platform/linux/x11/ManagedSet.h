// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The properties of the root window: the managed windows, their order, the active window and the
// current desktop.
#pragma once

#include <xcb/xcb.h>

#include <span>
#include <unordered_map>
#include <vector>

#include "platform/linux/x11/Atoms.h"

namespace lumbrix::platform::x11
{

class Connection;

/// Event thread only.
struct ManagedSet {
    std::vector<xcb_window_t> clients;  ///< the set; oldest first
    std::vector<xcb_window_t> stacking; ///< lowest first; may be stale or lack windows
    xcb_window_t active = XCB_NONE;
    int currentDesktop = 0;
    int desktopCount = 1;
    bool hasHiddenState = false; ///< the window manager announces _NET_WM_STATE_HIDDEN

    /// Whether this root property is used here.
    static bool isInteresting(xcb_atom_t property, const Atoms& atoms);
    /// One round trip. Without a window manager the set is empty.
    void fetch(const Connection& connection, const Atoms& atoms);
    /// Whether `stacking` has every window of the set. Some window managers write it only when a
    /// second window is stacked.
    bool isStackingComplete() const;
};

/// Children of the root, lowest first; one round trip.
std::vector<xcb_window_t> rootChildren(const Connection& connection);

/// `windows` by their place in `lowestFirst`, topmost first; those that are not in it come first,
/// as they are new.
std::vector<xcb_window_t> topmostFirst(std::span<const xcb_window_t> windows,
                                       std::span<const xcb_window_t> lowestFirst);

} // namespace lumbrix::platform::x11
