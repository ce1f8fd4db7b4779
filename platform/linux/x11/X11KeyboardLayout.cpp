// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/X11KeyboardLayout.h"

namespace lumbrix::platform::x11
{
namespace
{
constexpr std::uint64_t kMaxLayouts = 4; ///< that a keyboard can be switched between
}

std::uint64_t X11KeyboardLayout::currentLayout()
{
    readKeymap();
    return m_changesRead * kMaxLayouts + activeLayout(m_requests);
}

QString X11KeyboardLayout::charactersOfKey(std::int64_t keyCode)
{
    readKeymap();
    return m_keymap ? m_keymap->charactersOf(keyCode, activeLayout(m_requests)) : QString();
}

void X11KeyboardLayout::readKeymap()
{
    const std::uint64_t changes = m_changes;
    if (m_changesRead == changes)
        return;
    m_changesRead = changes;
    m_keymap = Keymap::read(m_requests);
}

void X11KeyboardLayout::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) == XCB_MAPPING_NOTIFY)
        ++m_changes;
}

} // namespace lumbrix::platform::x11
