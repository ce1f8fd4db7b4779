// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What is printed on the keys, according to the current keyboard layout.
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
    /// A number that changes when the user chooses another layout.
    virtual std::uint64_t currentLayout() = 0;
    /// The characters that the key of a virtual key code types without modifiers; for a dead key
    /// its accent. Empty if it types none or there is no such key.
    virtual QString charactersOfKey(std::int64_t keyCode) = 0;
    /// The translated label, on this platform, of a key that types no character, if it differs from
    /// the usual name of the virtual key code; otherwise empty.
    virtual QString nameOfKey(std::int64_t keyCode) const = 0;
    /// The virtual key code of a pressed key, from the native numbers in the toolkit's event; −1 if
    /// it has none.
    virtual std::int64_t keyCodeOf(std::uint32_t nativeScanCode,
                                   std::uint32_t nativeVirtualKey) = 0;
    /// The translated name, on this platform, of the modifier key of a ModifierFlag bit ("Alt").
    virtual QString nameOfModifier(std::uint32_t flag) const = 0;
    /// The sign that they know that key by, where there is no room for its name; empty where the
    /// port knows none.
    virtual QString signOfModifier(std::uint32_t /*flag*/) const { return {}; }
};

} // namespace lumbrix::platform
