// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/SGKeyCombo.h"

#include <QtCore/QCoreApplication>

#include "model/SGKeyCodeTranslator.h"
#include "platform/InputState.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{
namespace
{

using platform::ModifierFlag::command;
using platform::ModifierFlag::control;
using platform::ModifierFlag::option;
using platform::ModifierFlag::shift;

struct Modifier {
    std::int64_t bit;
    std::uint32_t flag;
    char16_t sign;
};
/// In display order.
constexpr Modifier modifierTable[] = {
    {0x100, command, u'\u2318'},
    {0x800, option, u'\u2325'},
    {0x1000, control, u'\u2303'},
    {0x200, shift, u'\u21E7'},
};

const QString keyCodeEntry = u"keyCode"_s;
const QString modifiersEntry = u"modifiers"_s;

} // namespace

SGKeyCombo SGKeyCombo::initWithPlistRepresentation(const QVariantMap& plist)
{
    // A value that is not a number reads as 0, so 0 must mean "none" too.
    const auto read = [&plist](const QString& entry) {
        const std::int64_t value = plist.value(entry).toLongLong();
        return value > 0 ? value : -1;
    };
    return {read(keyCodeEntry), read(modifiersEntry)};
}

QVariantMap SGKeyCombo::plistRepresentation() const
{
    return {{keyCodeEntry, static_cast<qlonglong>(keyCode)},
            {modifiersEntry, static_cast<qlonglong>(modifiers)}};
}

std::uint32_t SGKeyCombo::modifierMask() const
{
    std::uint32_t mask = 0;
    for (const Modifier& modifier : modifierTable)
        if (modifiers > 0 && (modifiers & modifier.bit))
            mask |= modifier.flag;
    return mask;
}

QString SGKeyCombo::keyCodeString(platform::KeyboardLayout& keyboard) const
{
    return isClearCombo() ? QString() : stringForKeyCode(keyboard, keyCode);
}

QString SGKeyCombo::description(platform::KeyboardLayout& keyboard) const
{
    if (!isValidHotKeyCombo())
        return QCoreApplication::translate("SGKeyCombo", "(None)");
    QString signs;
    for (const Modifier& modifier : modifierTable)
        if (modifiers & modifier.bit)
            signs += QChar(modifier.sign);
    return signs + keyCodeString(keyboard);
}

} // namespace lumbrix
