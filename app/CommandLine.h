// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

namespace lumbrix
{

/// Turns on what the program is to tell of itself, and answers the options that need no desktop:
/// "--version" and "--help" on standard output, anything that Lumbrix does not know on standard
/// error. To be called before a display is opened, with what main() received. The status to end
/// with, or nothing when the program is to run.
std::optional<int> answerCommandLine(int argc, const char* const* argv);

/// Whether the program was started only to print a report on what is under the mouse.
bool asksToInspect(int argc, const char* const* argv);

} // namespace lumbrix
