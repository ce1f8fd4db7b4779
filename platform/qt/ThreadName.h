// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace lumbrix::platform
{

/// Names the calling thread for debuggers and process listings, as far as the system can.
void nameCurrentThread(const std::string& name);

} // namespace lumbrix::platform
