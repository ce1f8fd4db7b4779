// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/qt/ThreadName.h"

namespace lumbrix::platform
{

void nameCurrentThread(const std::string& /*name*/) {}

} // namespace lumbrix::platform
