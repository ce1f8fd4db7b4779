// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>

namespace lumbrix
{

/// "lumbrix --inspect": gives the user three seconds to point at something, then prints a report on
/// it to standard output. Runs the event loop until that is done; the status to end with. Beside a
/// Lumbrix that runs it is a mere onlooker; `runningProcess` is that one's process id, 0 when there
/// is none, null when that is not known. Main thread.
int inspectAndPrint(std::optional<std::int32_t> runningProcess);

} // namespace lumbrix
