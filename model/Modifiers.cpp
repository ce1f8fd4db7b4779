// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/Modifiers.h"

#include "platform/Desktop.h"
#include "platform/InputState.h"

namespace lumbrix
{

std::uint32_t flagForIndex(int index)
{
    switch (index) {
    case 1:
        return platform::ModifierFlag::Option;
    case 2:
        return platform::ModifierFlag::Control;
    case 3:
        return platform::ModifierFlag::Shift;
    default:
        return platform::ModifierFlag::Command;
    }
}

bool isModifierHeld(int index)
{
    return (platform::desktop().inputState.modifierFlags() & flagForIndex(index)) != 0;
}

bool areFiltersSuspended(const EngineSettings& settings)
{
    return settings.tempDisableFilters && isModifierHeld(settings.tempDisableFiltersKeycode);
}

} // namespace lumbrix
