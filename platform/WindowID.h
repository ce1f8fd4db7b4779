// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace lumbrix::platform
{

/// Window-server number of a window; 0 = none.
using WindowID = std::uint32_t;

} // namespace lumbrix::platform
