// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What is printed on the keys, going by the keyboard layout in use.
#pragma once

#include <QtCore/QString>

#include <cstdint>

namespace lumbrix::platform
{

/// Main thread.
class KeyboardLayout
{
public:
    virtual ~KeyboardLayout() = default;
    /// Another number after the user has chosen another layout.
    virtual std::uint64_t currentLayout() = 0;
    /// The characters that the key of a virtual key code writes by itself, for a dead key those of
    /// its accent. Empty when it writes none, or there is no such key.
    virtual QString charactersOfKey(std::int64_t keyCode) = 0;
    /// What is printed here on a key that writes nothing, translated, where that is not what the
    /// virtual key code stands for elsewhere; else empty.
    virtual QString nameOfKey(std::int64_t keyCode) const = 0;
    /// The virtual key code of a key that was pressed, by the native numbers that the toolkit gives
    /// with the event; −1 when it has none.
    virtual std::int64_t keyCodeOf(std::uint32_t nativeScanCode,
                                   std::uint32_t nativeVirtualKey) = 0;
    /// What people here call the modifier key of a ModifierFlag bit ("Alt"), translated.
    virtual QString nameOfModifier(std::uint32_t flag) const = 0;
    /// The sign that they know that key by, where there is no room for its name; empty where the
    /// port knows none.
    virtual QString signOfModifier(std::uint32_t /*flag*/) const { return {}; }
};

} // namespace lumbrix::platform
