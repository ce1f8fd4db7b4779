// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/ModifierMasks.h"

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/KeySymbols.h"

namespace lumbrix::platform::x11
{
namespace
{

void addSymbol(ModifierMasks& masks, xcb_keysym_t symbol, std::uint32_t bit)
{
    switch (symbol) {
    case keysym::altLeft:
    case keysym::altRight:
        masks.option |= bit;
        break;
    case keysym::superLeft:
    case keysym::superRight:
        masks.command |= bit;
        break;
    case keysym::numLock:
        masks.numLock |= bit;
        break;
    case keysym::scrollLock:
        masks.scrollLock |= bit;
        break;
    default:
        break;
    }
}

} // namespace

ModifierMasks usualModifierMasks() { return {XCB_MOD_MASK_1, XCB_MOD_MASK_4, XCB_MOD_MASK_2, 0}; }

std::optional<ModifierMasks> readModifierMasks(const Connection& connection)
{
    xcb_connection_t* c = connection.get();
    const xcb_setup_t* setup = xcb_get_setup(c);
    const xcb_keycode_t first = setup->min_keycode;
    const int keyCount = setup->max_keycode - first + 1;
    const auto modifierCookie = xcb_get_modifier_mapping(c);
    const auto keyCookie = xcb_get_keyboard_mapping(c, first, static_cast<std::uint8_t>(keyCount));
    const auto modifiers = connection.reply(xcb_get_modifier_mapping_reply, modifierCookie);
    const auto keys = connection.reply(xcb_get_keyboard_mapping_reply, keyCookie);
    if (!modifiers || !keys)
        return std::nullopt;

    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(keys.get());
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    const int perKey = keys->keysyms_per_keycode;
    const int perModifier = modifiers->keycodes_per_modifier;
    ModifierMasks masks;
    for (int modifier = XCB_MAP_INDEX_1; modifier <= XCB_MAP_INDEX_5; ++modifier) {
        for (int i = 0; i < perModifier; ++i) {
            const int key = codes[modifier * perModifier + i] - first;
            if (key < 0 || key >= keyCount)
                continue;
            for (int level = 0; level < perKey; ++level)
                addSymbol(masks, symbols[key * perKey + level], 1U << modifier);
        }
    }
    if (!masks.option)
        masks.option = usualModifierMasks().option;
    if (!masks.command)
        masks.command = usualModifierMasks().command;
    return masks;
}

} // namespace lumbrix::platform::x11
