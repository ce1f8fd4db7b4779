// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/Modifiers.h"

namespace lumbrix
{

std::uint32_t flagForIndex(int index)
{
    switch (index) {
    case 1:
        return platform::ModifierFlag::option;
    case 2:
        return platform::ModifierFlag::control;
    case 3:
        return platform::ModifierFlag::shift;
    default:
        return platform::ModifierFlag::command;
    }
}

bool isModifierHeld(platform::InputState& input, int index)
{
    return (input.modifierFlags() & flagForIndex(index)) != 0;
}

bool areFiltersSuspended(platform::InputState& input, const EngineSettings& settings)
{
    return settings.tempDisableFilters && isModifierHeld(input, settings.tempDisableFiltersKeycode);
}

} // namespace lumbrix
