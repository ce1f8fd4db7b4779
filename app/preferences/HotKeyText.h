// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Key combinations as people here write them: "Super+Alt+K".
#pragma once

#include <QtCore/QString>

#include <cstdint>

namespace lumbrix
{

struct SGKeyCombo;

/// Main thread, both. Empty for an invalid combination.
QString hotKeyText(const SGKeyCombo& combo);
/// Of classic modifier bits, each followed by a plus sign.
QString modifierText(std::int64_t modifiers);

} // namespace lumbrix
