// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The server's keyboard in terms of virtual key codes, which number the places of the keys,
// whatever is printed on them.
#pragma once

#include <QtCore/QString>

#include <xcb/xcb.h>

#include <array>
#include <cstdint>
#include <memory>

struct xkb_keymap;

namespace lumbrix::platform::x11
{

class Connection;

/// A snapshot of the time when it was read. One thread at a time.
class Keymap
{
public:
    /// A few round trips. Null if the server is gone or has no keyboard layouts.
    static std::unique_ptr<Keymap> read(const Connection& connection);
    ~Keymap();
    Keymap(const Keymap&) = delete;
    Keymap& operator=(const Keymap&) = delete;

    /// By virtual key code; 0 where the keyboard has no key in that place.
    using Keycodes = std::array<xcb_keycode_t, 128>;
    Keycodes keycodes() const;
    /// What the key types without modifiers in one of the user's layouts.
    QString charactersOf(std::int64_t virtualKeyCode, std::uint32_t layout) const;

private:
    explicit Keymap(xkb_keymap* keymap) : m_keymap(keymap) {}
    xkb_keymap* const m_keymap;
};

/// The number of the user's layout in use; 0 also when the server does not say.
std::uint32_t activeLayout(const Connection& connection);

} // namespace lumbrix::platform::x11
