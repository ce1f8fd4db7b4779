// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

namespace lumbrix
{

/// From now on assistive tools see widgets whose property "accessibilityIsIgnored" is true, and all
/// that is in a window with that property, as empty and invisible: panels only repeat what other
/// programs show, and would be announced at every hover. Main thread; free when done already.
void ignorePanelsInAccessibility();

} // namespace lumbrix
