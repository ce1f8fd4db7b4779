// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The space that panels keep free at the edges of the screen.
#pragma once

#include <QtCore/QMargins>

#include <xcb/xcb.h>

#include <optional>

namespace lumbrix::platform
{

/// As the window says it in _NET_WM_STRUT_PARTIAL or _NET_WM_STRUT; null when it is gone or has
/// neither. Two round trips at most; any thread.
std::optional<QMargins> readStrut(xcb_connection_t* connection, xcb_window_t window);

} // namespace lumbrix::platform
