// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/X11InputState.h"

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/ModifierMasks.h"
#include "platform/linux/x11/PointSpace.h"
#include "platform/linux/x11/PointerTrail.h"

#include <xcb/xinput.h>

#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

Reply<xcb_query_pointer_reply_t> queryPointer(const Connection& connection)
{
    return connection.reply(xcb_query_pointer_reply,
                            xcb_query_pointer(connection.get(), connection.root()));
}

} // namespace

X11InputState::X11InputState(const RunLoop& runLoop, const Connection& requests,
                             const Connection& events, const PointSpace& points,
                             const PointerTrail& trail)
    : m_runLoop(runLoop), m_requests(requests), m_events(events), m_points(points), m_trail(trail),
      m_optionMask(usualModifierMasks().option), m_commandMask(usualModifierMasks().command)
{
    eventsHandled();
}

QPointF X11InputState::mouseLocation()
{
    const auto pointer = queryPointer(m_requests);
    return pointer ? locationOf({pointer->root_x, pointer->root_y}) : QPointF();
}

std::vector<MousePlace> X11InputState::mouseTrail()
{
    std::vector<MousePlace> result;
    for (const PointerTrail::Place& place : m_trail.places(m_runLoop.now()))
        result.push_back({locationOf(place.at), place.ago});
    return result;
}

QPointF X11InputState::locationOf(QPoint pixel) const
{
    // With y upward, a pixel's top left corner is the bottom edge of the pixel above it. Its middle
    // lies in the rectangles that the pixel belongs to, and in no other.
    return m_points.toScreenPoints(pixel) - QPointF(0, 0.5 / m_points.pixelsPerPoint());
}

QPoint X11InputState::pointer() const
{
    const auto pointer = queryPointer(m_requests);
    return pointer ? QPoint(pointer->root_x, pointer->root_y) : QPoint();
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
    return (mask & XCB_MOD_MASK_SHIFT ? ModifierFlag::shift : 0U) |
           (mask & XCB_MOD_MASK_CONTROL ? ModifierFlag::control : 0U) |
           (mask & m_optionMask ? ModifierFlag::option : 0U) |
           (mask & m_commandMask ? ModifierFlag::command : 0U);
}

void X11InputState::handleEvent(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7f;
    if (type == XCB_MAPPING_NOTIFY)
        m_isMappingDirty = true;
    if (type != XCB_GE_GENERIC)
        return;
    // The watch of the pointer has these told, also while another program holds the mouse.
    const auto& press = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
    if (press.extension == m_events.extensions().xinput.majorOpcode &&
        press.event_type == XCB_INPUT_RAW_BUTTON_PRESS && press.detail == 1)
        ++m_leftMouseDowns;
}

void X11InputState::eventsHandled()
{
    if (std::exchange(m_isMappingDirty, false))
        readModifierMapping();
}

void X11InputState::readModifierMapping()
{
    if (const auto masks = readModifierMasks(m_events)) {
        m_optionMask = masks->option;
        m_commandMask = masks->command;
    }
}

} // namespace lumbrix::platform::x11
