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

enum class StartMode {
    Usual,
    Inspect,     ///< only to print a report on what is under the mouse
    Preferences, ///< opens the preferences
    Toggle,      ///< turns the previews of the running program off, or on again
};

/// What the program was started for, if answerCommandLine() left anything to do.
StartMode startMode(int argc, const char* const* argv);

} // namespace lumbrix
