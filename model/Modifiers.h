// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The modifier keys that settings refer to.
#pragma once

#include <cstdint>

#include "model/EngineSettings.h"
#include "platform/InputState.h"

namespace lumbrix
{

/// Modifier mask of an index stored in the settings: 1 Option, 2 Control, 3 Shift, anything else
/// Command.
std::uint32_t flagForIndex(int index);
/// Whether the modifier key of that index is held now.
bool isModifierHeld(platform::InputState& input, int index);
/// Whether the visibility filters are off because their override key is held.
bool areFiltersSuspended(platform::InputState& input, const EngineSettings& settings);

} // namespace lumbrix
