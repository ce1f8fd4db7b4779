// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/switcher/SwitcherSteps.h"

#include "platform/linux/x11/KeySymbols.h"

namespace lumbrix::platform
{

void SwitcherSteps::pressed(xcb_keysym_t key, bool withShift)
{
    if (key == x11::keysym::tab)
        m_count = m_count.value_or(0) + (withShift ? -1 : 1);
    else if (key == x11::keysym::escape)
        restart(); // it closes, and the next Tab opens it anew
    else if (!x11::keysym::isModifier(key) && m_count)
        lose();
}

} // namespace lumbrix::platform
