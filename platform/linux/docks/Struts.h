// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The space that panels reserve at the edges of the screen.
#pragma once

#include <QtCore/QMargins>

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <span>

namespace lumbrix::platform
{

/// From the window's _NET_WM_STRUT_PARTIAL or _NET_WM_STRUT; null if it is gone or has neither. At
/// most two round trips; any thread.
std::optional<QMargins> readStrut(xcb_connection_t* connection, xcb_window_t window);

/// What the numbers of either property say; null when they are too few.
std::optional<QMargins> strutIn(std::span<const std::uint32_t> numbers);

} // namespace lumbrix::platform
