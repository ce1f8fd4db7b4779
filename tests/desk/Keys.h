// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Key codes of the private servers' keyboard, for Display::type() and the like.
#pragma once

#include <cstdint>

namespace lumbrix::privatedesk
{

inline constexpr std::uint8_t controlKey = 37, shiftKey = 50, altKey = 64, superKey = 133;
inline constexpr std::uint8_t escapeKey = 9, tabKey = 23, returnKey = 36, leftKey = 113,
                              rightKey = 114;
inline constexpr std::uint8_t twoKey = 11;
inline constexpr std::uint8_t aKey = 38, bKey = 56, cKey = 54, eKey = 26, jKey = 44, kKey = 45,
                              lKey = 46, oKey = 32, pKey = 33, sKey = 39, tKey = 28, wKey = 25;

} // namespace lumbrix::privatedesk
