// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>

namespace lumbrix
{

/// "lumbrix --inspect": gives the user three seconds to point at something, then prints a report on
/// it to standard output. Runs the event loop until that is done and returns the exit status. Does
/// not affect a running Lumbrix, whose process id is `runningProcess`: 0 when none runs, null when
/// that is not known. Main thread.
int inspectAndPrint(std::optional<std::int32_t> runningProcess);

} // namespace lumbrix
