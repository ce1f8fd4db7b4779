// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/X11KeyboardLayout.h"

#include "platform/InputState.h"

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <iterator>

namespace lumbrix::platform::x11
{
namespace
{
constexpr std::uint64_t maxLayouts = 4; ///< that a keyboard can be switched between
}

std::uint64_t X11KeyboardLayout::currentLayout()
{
    readKeymap();
    return m_changesRead * maxLayouts + activeLayout(m_requests);
}

QString X11KeyboardLayout::charactersOfKey(std::int64_t keyCode)
{
    readKeymap();
    return m_keymap ? m_keymap->charactersOf(keyCode, activeLayout(m_requests)) : QString();
}

/// The PC's keys above the arrows, in the places of F13 to F15.
QString X11KeyboardLayout::nameOfKey(std::int64_t keyCode) const
{
    switch (keyCode) {
    case 105:
        return QCoreApplication::translate("KeyboardLayout", "Print");
    case 107:
        return QCoreApplication::translate("KeyboardLayout", "Scroll Lock");
    case 113:
        return QCoreApplication::translate("KeyboardLayout", "Pause");
    default:
        return {};
    }
}

/// The scan code is the server's key code, which stands for one place; the virtual key is a symbol,
/// of which several places may have the same.
std::int64_t X11KeyboardLayout::keyCodeOf(std::uint32_t nativeScanCode, std::uint32_t)
{
    readKeymap();
    if (!m_keymap || nativeScanCode == 0)
        return -1;
    const Keymap::Keycodes keycodes = m_keymap->keycodes();
    const auto found = std::find(keycodes.begin(), keycodes.end(), nativeScanCode);
    return found == keycodes.end() ? -1 : std::distance(keycodes.begin(), found);
}

QString X11KeyboardLayout::nameOfModifier(std::uint32_t flag) const
{
    switch (flag) {
    case ModifierFlag::shift:
        return QCoreApplication::translate("KeyboardLayout", "Shift");
    case ModifierFlag::control:
        return QCoreApplication::translate("KeyboardLayout", "Ctrl");
    case ModifierFlag::option:
        return QCoreApplication::translate("KeyboardLayout", "Alt");
    case ModifierFlag::command:
        return QCoreApplication::translate("KeyboardLayout", "Super");
    default:
        return {};
    }
}

/// Of PC keyboards, on which that key has four panes; the others have their names on them.
QString X11KeyboardLayout::signOfModifier(std::uint32_t flag) const
{
    return flag == ModifierFlag::command ? QString(QChar(0x229E)) : QString();
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
