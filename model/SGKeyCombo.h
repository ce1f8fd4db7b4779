// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A key with modifiers: its stored form and its text.
#pragma once

#include <QtCore/QString>
#include <QtCore/QVariantMap>

#include <cstdint>

#include "platform/KeyboardLayout.h"

namespace lumbrix
{

/// A virtual key code with modifier bits (command 0x100, shift 0x200, option 0x800,
/// control 0x1000); −1 means none.
struct SGKeyCombo {
    std::int64_t keyCode = -1;
    std::int64_t modifiers = -1;

    bool operator==(const SGKeyCombo&) const = default;

    /// From its stored form; the clear combo from an empty one.
    static SGKeyCombo initWithPlistRepresentation(const QVariantMap& plist);
    QVariantMap plistRepresentation() const;

    bool isClearCombo() const { return *this == SGKeyCombo(); }
    bool isValidHotKeyCombo() const { return keyCode >= 0 && modifiers > 0; }
    /// The modifiers as ModifierFlag bits.
    std::uint32_t modifierMask() const;
    /// The text on the key; empty for the clear combo. Main thread.
    QString keyCodeString(platform::KeyboardLayout& keyboard) const;
    /// Modifier signs and the text on the key. Main thread.
    QString description(platform::KeyboardLayout& keyboard) const;
};

} // namespace lumbrix
