// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which modifier keys the settings ask about.
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
/// The visibility filters are off for as long as their override key is held.
bool areFiltersSuspended(platform::InputState& input, const EngineSettings& settings);

} // namespace lumbrix
