// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the sanitizers are told, however a test program is started.
#include "tests/support/SanitizerOptions.h"

extern "C" {
const char* __tsan_default_options()
{
    return "halt_on_error=1:second_deadlock_stack=1:suppressions=" LUMBRIX_TSAN_SUPPRESSIONS;
}
// Strings need not end where they are counted: libxkbcommon hands over parts of the server's
// answers.
const char* __asan_default_options() { return "detect_stack_use_after_return=1"; }
const char* __ubsan_default_options() { return "print_stacktrace=1"; }
}

namespace lumbrix::test
{
void linkSanitizerOptions() {}
} // namespace lumbrix::test
