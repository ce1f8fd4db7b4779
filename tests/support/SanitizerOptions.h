// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

namespace lumbrix::test
{

/// Called by main() so that the options are linked in: the sanitizers look for them by name.
void linkSanitizerOptions();

} // namespace lumbrix::test
