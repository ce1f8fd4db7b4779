// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/Keymap.h"

#include "platform/linux/x11/Connection.h"

#include <xkbcommon/xkbcommon-x11.h>
#include <xkbcommon/xkbcommon.h>

#include <iterator>

namespace lumbrix::platform::x11
{
namespace
{

/// The names that keyboards give to the places of virtual key codes 0, 1 ...: the row, counted from
/// the space bar's, and the place in it. The PC's keys above the arrows stand for F13 to F15 and
/// help.
constexpr const char* placeNames[] = {
    // clang-format off
    "AC01", "AC02", "AC03", "AC04", "AC06", "AC05", "AB01", "AB02", "AB03", "AB04", "LSGT", "AB05", "AD01", "AD02", "AD03", "AD04",
    "AD06", "AD05", "AE01", "AE02", "AE03", "AE04", "AE06", "AE05", "AE12", "AE09", "AE07", "AE11", "AE08", "AE10", "AD12", "AD09",
    "AD07", "AD11", "AD08", "AD10", "RTRN", "AC09", "AC07", "AC11", "AC08", "AC10", "BKSL", "AB08", "AB10", "AB06", "AB07", "AB09",
    "TAB", "SPCE", "TLDE", "BKSP", "", "ESC", "", "", "", "", "", "", "", "", "", "",
    "FK17", "KPDL", "", "KPMU", "", "KPAD", "", "NMLK", "", "", "", "KPDV", "KPEN", "", "KPSU", "FK18",
    "FK19", "KPEQ", "KP0", "KP1", "KP2", "KP3", "KP4", "KP5", "KP6", "KP7", "FK20", "KP8", "KP9", "", "", "",
    "FK05", "FK06", "FK07", "FK03", "FK08", "FK09", "", "FK11", "", "PRSC", "FK16", "SCLK", "", "FK10", "COMP", "FK12",
    "", "PAUS", "INS", "HOME", "PGUP", "DELE", "FK04", "END", "FK02", "PGDN", "FK01", "LEFT", "RGHT", "DOWN", "UP", "",
    // clang-format on
};

struct ContextDeleter {
    void operator()(xkb_context* context) const { xkb_context_unref(context); }
};

xkb_keycode_t keyAt(xkb_keymap* keymap, std::int64_t virtualKeyCode)
{
    if (virtualKeyCode < 0 || virtualKeyCode >= static_cast<std::int64_t>(std::size(placeNames)))
        return XKB_KEYCODE_INVALID;
    return xkb_keymap_key_by_name(keymap, placeNames[virtualKeyCode]);
}

/// Dead keys write nothing by themselves, but have an accent printed on them.
char32_t accentOf(xkb_keysym_t symbol)
{
    switch (symbol) {
    case XKB_KEY_dead_grave:
        return U'`';
    case XKB_KEY_dead_acute:
        return U'\u00B4';
    case XKB_KEY_dead_circumflex:
        return U'^';
    case XKB_KEY_dead_tilde:
        return U'~';
    case XKB_KEY_dead_diaeresis:
        return U'\u00A8';
    case XKB_KEY_dead_cedilla:
        return U'\u00B8';
    case XKB_KEY_dead_caron:
        return U'\u02C7';
    case XKB_KEY_dead_abovering:
        return U'\u02DA';
    default:
        return 0;
    }
}

char32_t characterOf(xkb_keysym_t symbol)
{
    const char32_t character = xkb_keysym_to_utf32(symbol);
    const bool isPrintable = character > U' ' && character != 0x7f;
    return isPrintable ? character : accentOf(symbol);
}

} // namespace

std::unique_ptr<Keymap> Keymap::read(const Connection& connection)
{
    xcb_connection_t* c = connection.get();
    if (!xkb_x11_setup_xkb_extension(
            c, XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
            XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr, nullptr))
        return nullptr;
    const std::int32_t device = xkb_x11_get_core_keyboard_device_id(c);
    // The map comes from the server, so no files of the system are read.
    const std::unique_ptr<xkb_context, ContextDeleter> context(
        xkb_context_new(static_cast<xkb_context_flags>(XKB_CONTEXT_NO_DEFAULT_INCLUDES |
                                                       XKB_CONTEXT_NO_ENVIRONMENT_NAMES)));
    if (device < 0 || !context)
        return nullptr;
    xkb_keymap* keymap =
        xkb_x11_keymap_new_from_device(context.get(), c, device, XKB_KEYMAP_COMPILE_NO_FLAGS);
    return keymap ? std::unique_ptr<Keymap>(new Keymap(keymap)) : nullptr;
}

Keymap::~Keymap() { xkb_keymap_unref(m_keymap); }

Keymap::Keycodes Keymap::keycodes() const
{
    Keycodes result{};
    static_assert(std::size(placeNames) == std::tuple_size_v<Keycodes>);
    for (std::size_t code = 0; code < result.size(); ++code) {
        const xkb_keycode_t key = keyAt(m_keymap, static_cast<std::int64_t>(code));
        result[code] = key <= UINT8_MAX ? static_cast<xcb_keycode_t>(key) : 0;
    }
    return result;
}

QString Keymap::charactersOf(std::int64_t virtualKeyCode, std::uint32_t layout) const
{
    const xkb_keycode_t key = keyAt(m_keymap, virtualKeyCode);
    if (key == XKB_KEYCODE_INVALID)
        return {};
    const xkb_layout_index_t layouts = xkb_keymap_num_layouts_for_key(m_keymap, key);
    if (layouts == 0)
        return {};
    layout %= layouts;
    // Those of the keypad move the cursor at the first level and write at the second.
    const xkb_level_index_t levels = xkb_keymap_num_levels_for_key(m_keymap, key, layout);
    for (xkb_level_index_t level = 0; level < levels; ++level) {
        const xkb_keysym_t* symbols = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(m_keymap, key, layout, level, &symbols);
        QString result;
        for (int i = 0; i < count; ++i) {
            const char32_t character = characterOf(symbols[i]);
            if (character)
                result += QString::fromUcs4(&character, 1);
        }
        if (!result.isEmpty())
            return result;
    }
    return {};
}

std::uint32_t activeLayout(const Connection& connection)
{
    // The upper bits of a pointer's state are the keyboard's layout.
    constexpr int shift = 13;
    constexpr std::uint32_t layouts = 4;
    const auto state = connection.reply(xcb_query_pointer_reply,
                                        xcb_query_pointer(connection.get(), connection.root()));
    return state ? state->mask >> shift & (layouts - 1) : 0;
}

} // namespace lumbrix::platform::x11
