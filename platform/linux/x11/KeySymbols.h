// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The keys that this program knows by their symbols.
#pragma once

#include <xcb/xproto.h>

namespace lumbrix::platform::x11::keysym
{

inline constexpr xcb_keysym_t tab = 0xff09;
inline constexpr xcb_keysym_t scrollLock = 0xff14;
inline constexpr xcb_keysym_t escape = 0xff1b;
inline constexpr xcb_keysym_t numLock = 0xff7f;
inline constexpr xcb_keysym_t shiftLeft = 0xffe1;
inline constexpr xcb_keysym_t shiftRight = 0xffe2;
inline constexpr xcb_keysym_t metaLeft = 0xffe7;
inline constexpr xcb_keysym_t altLeft = 0xffe9;
inline constexpr xcb_keysym_t altRight = 0xffea;
inline constexpr xcb_keysym_t superLeft = 0xffeb;
inline constexpr xcb_keysym_t superRight = 0xffec;
inline constexpr xcb_keysym_t hyperRight = 0xffee;

/// Meta, Alt, Super and Hyper, which are neighbours: one of them holds a switcher open.
constexpr bool isAltOrSuper(xcb_keysym_t key) { return key >= metaLeft && key <= hyperRight; }

/// These, Shift, Control and the locks; and the shift keys of further levels.
constexpr bool isModifier(xcb_keysym_t key)
{
    return (key >= shiftLeft && key <= hyperRight) || (key >= 0xfe01 && key <= 0xfe0f);
}

} // namespace lumbrix::platform::x11::keysym
