// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/HotKeyText.h"

#include <QtCore/QCoreApplication>

#include "model/SGKeyCombo.h"
#include "platform/Desktop.h"
#include "platform/InputState.h"
#include "platform/KeyboardLayout.h"

namespace lumbrix
{
namespace
{

/// Keys that are named by a word instead of a symbol.
const char* wordFor(std::int64_t keyCode)
{
    static constexpr std::pair<std::int64_t, const char*> words[] = {
        {36, QT_TRANSLATE_NOOP("HotKeyText", "Return")},
        {48, QT_TRANSLATE_NOOP("HotKeyText", "Tab")},
        {49, QT_TRANSLATE_NOOP("HotKeyText", "Spacebar")},
        {51, QT_TRANSLATE_NOOP("HotKeyText", "Backspace")},
        {53, QT_TRANSLATE_NOOP("HotKeyText", "Esc")},
        {71, QT_TRANSLATE_NOOP("HotKeyText", "Num Lock")},
        {76, QT_TRANSLATE_NOOP("HotKeyText", "Enter")},
        {115, QT_TRANSLATE_NOOP("HotKeyText", "Home")},
        {116, QT_TRANSLATE_NOOP("HotKeyText", "Page Up")},
        {117, QT_TRANSLATE_NOOP("HotKeyText", "Delete")},
        {119, QT_TRANSLATE_NOOP("HotKeyText", "End")},
        {121, QT_TRANSLATE_NOOP("HotKeyText", "Page Down")},
        {123, QT_TRANSLATE_NOOP("HotKeyText", "Left")},
        {124, QT_TRANSLATE_NOOP("HotKeyText", "Right")},
        {125, QT_TRANSLATE_NOOP("HotKeyText", "Down")},
        {126, QT_TRANSLATE_NOOP("HotKeyText", "Up")},
    };
    for (const auto& [code, word] : words)
        if (code == keyCode)
            return word;
    return nullptr;
}

} // namespace

QString modifierText(std::int64_t modifiers)
{
    using namespace platform::ModifierFlag;
    const std::uint32_t mask = SGKeyCombo{0, modifiers}.modifierMask();
    QString text;
    for (const std::uint32_t flag : {command, control, option, shift})
        if (mask & flag)
            text += platform::desktop().keyboardLayout.nameOfModifier(flag) + QLatin1Char('+');
    return text;
}

QString hotKeyText(const SGKeyCombo& combo)
{
    if (!combo.isValidHotKeyCombo())
        return {};
    const char* word = wordFor(combo.keyCode);
    const QString key = word ? QCoreApplication::translate("HotKeyText", word)
                             : combo.keyCodeString(platform::desktop().keyboardLayout);
    return modifierText(combo.modifiers) + key;
}

} // namespace lumbrix
