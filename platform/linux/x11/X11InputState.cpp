// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/X11InputState.h"

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/PointSpace.h"

#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

// Key symbols; which of the five free modifiers they set differs between keyboard layouts.
constexpr xcb_keysym_t kAltLeft = 0xffe9;
constexpr xcb_keysym_t kAltRight = 0xffea;
constexpr xcb_keysym_t kSuperLeft = 0xffeb;
constexpr xcb_keysym_t kSuperRight = 0xffec;
// What they set where the mapping does not tell.
constexpr std::uint32_t kDefaultOption = XCB_MOD_MASK_1;
constexpr std::uint32_t kDefaultCommand = XCB_MOD_MASK_4;

Reply<xcb_query_pointer_reply_t> queryPointer(const Connection& connection)
{
    return connection.reply(xcb_query_pointer_reply,
                            xcb_query_pointer(connection.get(), connection.root()));
}

} // namespace

X11InputState::X11InputState(const Connection& requests, const Connection& events,
                             const PointSpace& points)
    : m_requests(requests), m_events(events), m_points(points), m_optionMask(kDefaultOption),
      m_commandMask(kDefaultCommand)
{
    eventsHandled();
}

QPointF X11InputState::mouseLocation()
{
    const auto pointer = queryPointer(m_requests);
    if (!pointer)
        return {};
    // With y upward, a pixel's top left corner is the bottom edge of the pixel above it. Its middle
    // lies in the rectangles that the pixel belongs to, and in no other.
    return m_points.toScreenPoints(QPoint(pointer->root_x, pointer->root_y)) -
           QPointF(0, 0.5 / m_points.pixelsPerPoint());
}

std::uint32_t X11InputState::pointerMask() const
{
    const auto pointer = queryPointer(m_requests);
    return pointer ? pointer->mask : 0;
}

std::uint32_t X11InputState::pressedMouseButtons()
{
    const std::uint32_t mask = pointerMask();
    return (mask & XCB_KEY_BUT_MASK_BUTTON_1 ? 1U : 0U) |
           (mask & XCB_KEY_BUT_MASK_BUTTON_3 ? 2U : 0U) |
           (mask & XCB_KEY_BUT_MASK_BUTTON_2 ? 4U : 0U);
}

std::uint32_t X11InputState::modifierFlags()
{
    const std::uint32_t mask = pointerMask();
    return (mask & XCB_MOD_MASK_SHIFT ? ModifierFlag::Shift : 0U) |
           (mask & XCB_MOD_MASK_CONTROL ? ModifierFlag::Control : 0U) |
           (mask & m_optionMask ? ModifierFlag::Option : 0U) |
           (mask & m_commandMask ? ModifierFlag::Command : 0U);
}

void X11InputState::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) == XCB_MAPPING_NOTIFY)
        m_isMappingDirty = true;
}

void X11InputState::eventsHandled()
{
    if (std::exchange(m_isMappingDirty, false))
        readModifierMapping();
}

void X11InputState::readModifierMapping()
{
    xcb_connection_t* c = m_events.get();
    const xcb_setup_t* setup = xcb_get_setup(c);
    const xcb_keycode_t first = setup->min_keycode;
    const int keyCount = setup->max_keycode - first + 1;
    const auto modifierCookie = xcb_get_modifier_mapping(c);
    const auto keyCookie = xcb_get_keyboard_mapping(c, first, static_cast<std::uint8_t>(keyCount));
    const auto modifiers = m_events.reply(xcb_get_modifier_mapping_reply, modifierCookie);
    const auto keys = m_events.reply(xcb_get_keyboard_mapping_reply, keyCookie);
    if (!modifiers || !keys)
        return;

    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(keys.get());
    const xcb_keycode_t* codes = xcb_get_modifier_mapping_keycodes(modifiers.get());
    const int perKey = keys->keysyms_per_keycode;
    const int perModifier = modifiers->keycodes_per_modifier;
    std::uint32_t option = 0;
    std::uint32_t command = 0;
    for (int modifier = XCB_MAP_INDEX_1; modifier <= XCB_MAP_INDEX_5; ++modifier) {
        for (int i = 0; i < perModifier; ++i) {
            const int key = codes[modifier * perModifier + i] - first;
            if (key < 0 || key >= keyCount)
                continue;
            for (int level = 0; level < perKey; ++level) {
                const xcb_keysym_t symbol = symbols[key * perKey + level];
                if (symbol == kAltLeft || symbol == kAltRight)
                    option |= 1U << modifier;
                else if (symbol == kSuperLeft || symbol == kSuperRight)
                    command |= 1U << modifier;
            }
        }
    }
    m_optionMask = option ? option : kDefaultOption;
    m_commandMask = command ? command : kDefaultCommand;
}

} // namespace lumbrix::platform::x11
