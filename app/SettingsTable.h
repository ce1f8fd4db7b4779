// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Every setting of one value, as the user, the engine and the documents know it.
#pragma once

#include <cstdint>
#include <span>
#include <variant>

#include "model/EngineSettings.h"

namespace lumbrix
{

/// What a value is. Points, a size of so many points and seconds are read as floats, a colour as
/// data, the others as integers.
enum class SettingKind { Flag, Choice, Modifier, Points, Size, Seconds, Color };

/// When the first value is stored. What never is reads as zero, that is, off; where the desktop
/// decides, the first value is that of a desktop that suits.
enum class FirstStored { Never, AtFirstRun, AtBadgeRun, ByDesktop };

/// The engine's copy of a setting; nothing where only other parts of the program consult it.
using SettingField = std::variant<std::monostate, Setting<std::int32_t> EngineSettings::*,
                                  Setting<float> EngineSettings::*>;

struct SettingRow {
    const char* key;
    SettingField field;
    SettingKind kind;
    FirstStored stored;
    int first;
    /// What the preferences offer. The settings file may go beyond, and is obeyed, but a size below
    /// its minimum, in which nothing can be drawn, counts as that.
    int minimum;
    int maximum;
    /// For the user: a clause without a full stop, in no markup.
    const char* meaning;
};

/// In the order of the documents. Any thread.
std::span<const SettingRow> settingsTable();

} // namespace lumbrix
