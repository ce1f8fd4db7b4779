// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Key combinations as text, as usual on this platform: "Super+Alt+K".
#pragma once

#include <QtCore/QString>

#include <cstdint>

namespace lumbrix
{

struct SGKeyCombo;

/// Both functions: main thread. Empty for an invalid combination.
QString hotKeyText(const SGKeyCombo& combo);
/// The names of classic modifier bits, each followed by a plus sign.
QString modifierText(std::int64_t modifiers);

} // namespace lumbrix
