// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The position of the mouse, and which buttons and modifier keys are down.
#pragma once

#include <QtCore/QPointF>

#include <cstdint>
#include <vector>

#include "platform/RunLoop.h"

namespace lumbrix::platform
{

/// Bits of modifierFlags().
namespace ModifierFlag
{
inline constexpr std::uint32_t shift = 0x20000;
inline constexpr std::uint32_t control = 0x40000;
inline constexpr std::uint32_t option = 0x80000;
inline constexpr std::uint32_t command = 0x100000;
} // namespace ModifierFlag

struct MousePlace {
    QPointF at;      ///< as mouseLocation()
    Seconds ago = 0; ///< since the mouse came there
};

/// Any thread.
class InputState
{
public:
    virtual ~InputState() = default;
    /// In screen coordinates: origin at the bottom left of the main screen, y upward, points.
    virtual QPointF mouseLocation() = 0;
    /// Where the mouse was during the last half second, the latest place first. The last one is
    /// where it was when that began; it is missing where nobody knows.
    virtual std::vector<MousePlace> mouseTrail() = 0;
    /// Bit 0 left, bit 1 right, bit 2 middle.
    virtual std::uint32_t pressedMouseButtons() = 0;
    /// How often the left button was pressed so far, whoever got the click; wraps.
    virtual std::uint32_t leftMouseDowns() = 0;
    /// The modifier keys held now, as ModifierFlag bits.
    virtual std::uint32_t modifierFlags() = 0;
};

} // namespace lumbrix::platform
