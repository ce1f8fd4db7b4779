// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

namespace lumbrix
{

/// From now on assistive tools see panels as empty and invisible: they only repeat what other
/// programs show, and would be announced at every hover. Main thread; free when done already.
void ignorePanelsInAccessibility();

} // namespace lumbrix
