// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which of the five free modifiers stand for what; that differs between keyboard layouts.
#pragma once

#include <cstdint>
#include <optional>

namespace lumbrix::platform::x11
{

class Connection;

/// Bits of a key or button event's state. Several, or none, where a keyboard is set up so.
struct ModifierMasks {
    std::uint32_t option = 0;
    std::uint32_t command = 0;
    std::uint32_t numLock = 0;
    std::uint32_t scrollLock = 0;
};

/// The usual bits, used if the mapping does not define them.
ModifierMasks usualModifierMasks();

/// Two requests, one round trip. With the usual bits for Option and Command where no key sets any.
/// Null when the server is gone.
std::optional<ModifierMasks> readModifierMasks(const Connection& connection);

} // namespace lumbrix::platform::x11
