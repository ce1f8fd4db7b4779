// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/switcher/SwitcherSteps.h"

namespace lumbrix::platform
{

namespace
{

constexpr xcb_keysym_t TabKey = 0xff09;
constexpr xcb_keysym_t EscapeKey = 0xff1b;

} // namespace

bool isModifierKey(xcb_keysym_t key)
{
    return (key >= 0xffe1 && key <= 0xffee) || (key >= 0xfe01 && key <= 0xfe0f);
}

void SwitcherSteps::pressed(xcb_keysym_t key, bool withShift)
{
    if (key == TabKey) {
        m_count = m_count.value_or(0) + (withShift ? -1 : 1);
    } else if (key == EscapeKey) {
        restart(); // it closes, and the next Tab opens it anew
    } else if (!isModifierKey(key) && m_count) {
        lose();
    }
}

} // namespace lumbrix::platform
