// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Fetches the dirty data of many windows at once: all requests first, then the replies.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/linux/x11/WindowProperties.h"

namespace lumbrix::platform::x11
{

class Connection;

/// Clears the dirty bits of every record, and marks as gone the windows that no longer exist. Two
/// or three round trips, however many windows there are.
void fetchWindows(const Connection& connection, const Atoms& atoms,
                  std::span<WindowRecord* const> records);

/// The process ids of the clients that made these windows, as the server knows them; null where it
/// does not. One round trip.
std::vector<std::optional<std::int32_t>> clientPids(const Connection& connection,
                                                    std::span<const xcb_window_t> windows);

} // namespace lumbrix::platform::x11
