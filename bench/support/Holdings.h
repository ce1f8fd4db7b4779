// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a process holds in memory, in the kernel and in the X server, and how that develops.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>
#include <xcb/xcb.h>

namespace lumbrix::bench
{

/// Counts and KiB by name, in the order they are to be printed.
using Holdings = std::vector<std::pair<std::string, double>>;

/// None once the process is gone. Main thread.
std::optional<Holdings> holdingsOf(xcb_connection_t* connection, int pid);
/// 0 for what it does not hold.
double valueOf(const Holdings& holdings, const std::string& name);
/// A table of three moments. `steps` of the kind `step` lie between the first and the last.
void print(const Holdings& start, const Holdings& middle, const Holdings& end, double steps,
           const char* step);

} // namespace lumbrix::bench
