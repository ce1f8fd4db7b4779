// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Virtual key codes as text.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>

#include <cstdint>
#include <memory>

#include "platform/KeyboardLayout.h"

namespace lumbrix
{

/// The characters on the keys in one keyboard layout. Main thread.
class SGKeyCodeTranslator
{
public:
    /// The translator for the current keyboard layout; another object after the layout has changed.
    static std::shared_ptr<SGKeyCodeTranslator>
    currentTranslator(platform::KeyboardLayout& keyboard);

    /// The port must outlive it.
    SGKeyCodeTranslator(platform::KeyboardLayout& keyboard, std::uint64_t layout)
        : m_keyboard(keyboard), m_layout(layout)
    {
    }
    /// One character, or none.
    QString translateKeyCode(std::int64_t keyCode);

private:
    platform::KeyboardLayout& m_keyboard;
    const std::uint64_t m_layout;
    QHash<std::int64_t, QString> m_known;
};

/// The name of a key that types no character, otherwise its character in upper case; for keys of
/// the keypad with a word in front. Main thread.
QString stringForKeyCode(platform::KeyboardLayout& keyboard, std::int64_t keyCode);

} // namespace lumbrix
