// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a cursor costs that blinks in a very large window.
#pragma once

namespace lumbrix::bench
{

/// On a private desktop of its own. Writes its figures to standard output.
void measureBlinkingCursor();

} // namespace lumbrix::bench
