// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

namespace lumbrix
{

/// Makes widgets with the property "accessibilityIsIgnored", and everything in a window with that
/// property, empty and invisible to assistive technology: panels only repeat what other programs
/// show, and would be announced at every hover. Main thread; repeated calls do nothing.
void ignorePanelsInAccessibility();

} // namespace lumbrix
