// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/PointerWatch.h"

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/KeySymbols.h"

#include <xcb/xinput.h>

#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

void selectXInput(xcb_connection_t* c, xcb_window_t window, std::uint32_t events)
{
    const struct {
        xcb_input_event_mask_t head;
        std::uint32_t mask;
    } request{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
    xcb_input_xi_select_events(c, window, 1, &request.head);
}

/// Milliseconds; keys start to repeat after a longer time, and raw events do not report repeats.
constexpr xcb_timestamp_t repeatTime = 250;

/// Without a report. Longer than between two of a slow device, shorter than anybody notices.
constexpr Seconds restTime = 0.04;

bool isWheel(std::uint32_t button) { return button >= 4 && button <= 7; }

} // namespace

PointerWatch::PointerWatch(RunLoop& runLoop, const Connection& connection,
                           const WindowTracker& tracker, const Listeners& listeners,
                           const PointSpace& points, PointerTrail& trail)
    : m_runLoop(runLoop), m_connection(connection), m_listeners(listeners), m_points(points),
      m_trail(trail)
{
    selectRaw(false);
    for (const TrackedWindowPtr& window : tracker.windows())
        windowAdded(window);
}

void PointerWatch::hearKeys(KeyHearing which)
{
    m_hearing = which;
    selectRaw(which != KeyHearing::None);
    m_keyboard = nullptr;
    m_keys.clear();
    m_lastPressed = {};
    if (which != KeyHearing::None)
        fetchKeyboard();
}

void PointerWatch::fetchKeyboard()
{
    xcb_connection_t* c = m_connection.get();
    const xcb_setup_t& setup = *xcb_get_setup(c);
    const auto count = static_cast<std::uint8_t>(setup.max_keycode - setup.min_keycode + 1);
    const auto pointerCookie = xcb_query_pointer(c, m_connection.root());
    const auto keyboardCookie = xcb_get_keyboard_mapping(c, setup.min_keycode, count);
    const auto pointer = m_connection.reply(xcb_query_pointer_reply, pointerCookie);
    m_isShiftDown = pointer && (pointer->mask & XCB_MOD_MASK_SHIFT);
    m_isModifierDown = pointer && (pointer->mask & (XCB_MOD_MASK_1 | XCB_MOD_MASK_4));
    m_keyboard = m_connection.reply(xcb_get_keyboard_mapping_reply, keyboardCookie);
}

void PointerWatch::tellKeys()
{
    const std::vector<Key> keys = std::exchange(m_keys, {});
    if (!m_keyboard)
        fetchKeyboard();
    if (!m_keyboard)
        return;
    const int first = xcb_get_setup(m_connection.get())->min_keycode;
    for (const Key& key : keys) {
        const int place = (key.code - first) * m_keyboard->keysyms_per_keycode;
        if (place >= 0 && place < xcb_get_keyboard_mapping_keysyms_length(m_keyboard.get()))
            tellKey(
                xcb_get_keyboard_mapping_keysyms(m_keyboard.get())[static_cast<std::size_t>(place)],
                key);
    }
}

void PointerWatch::tellKey(xcb_keysym_t symbol, const Key& key)
{
    if (symbol == keysym::shiftLeft || symbol == keysym::shiftRight)
        m_isShiftDown = key.isDown;
    if (keysym::isAltOrSuper(symbol))
        m_isModifierDown = key.isDown;
    const bool hasRepeated =
        !key.isDown && key.code == m_lastPressed.code && key.time - m_lastPressed.time > repeatTime;
    if (m_hearing != KeyHearing::All && !m_isModifierDown) {
        m_lastPressed = {};
        return;
    }
    if (key.isDown) {
        m_lastPressed = key;
        m_listeners.notify(
            [&](WindowListener& listener) { listener.keyPressed(symbol, m_isShiftDown); });
    } else if (hasRepeated) {
        m_listeners.notify([&](WindowListener& listener) { listener.keyRepeated(symbol); });
    }
}

void PointerWatch::selectRaw(bool withKeys) const
{
    const std::uint32_t always =
        XCB_INPUT_XI_EVENT_MASK_RAW_MOTION | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS;
    selectXInput(m_connection.get(), m_connection.root(),
                 withKeys ? always | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS |
                                XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE
                          : always);
}

void PointerWatch::windowAdded(const TrackedWindowPtr& window)
{
    if (window->type == WindowType::Dock)
        followDock(window->id);
}

void PointerWatch::windowChanged(const TrackedWindowPtr& before, const TrackedWindowPtr& after)
{
    if (before->type != WindowType::Dock)
        windowAdded(after);
}

/// A pointer that another program warps makes no raw events, only ordinary ones: over docks, where
/// it matters, these are listened to as well. An ordinary event goes to the XInput selections of a
/// window or else to its core ones, never to both: so the kind is selected that the dock itself
/// uses, or it would no longer hear of the mouse.
void PointerWatch::followDock(xcb_window_t window)
{
    xcb_connection_t* c = m_connection.get();
    const auto attributes =
        m_connection.reply(xcb_get_window_attributes_reply, xcb_get_window_attributes(c, window));
    if (!attributes)
        return;
    std::uint32_t core =
        attributes->your_event_mask | XCB_EVENT_MASK_ENTER_WINDOW | XCB_EVENT_MASK_LEAVE_WINDOW;
    if (attributes->all_event_masks &
        (XCB_EVENT_MASK_POINTER_MOTION | XCB_EVENT_MASK_BUTTON_MOTION))
        core |= XCB_EVENT_MASK_POINTER_MOTION;
    else
        selectXInput(c, window, XCB_INPUT_XI_EVENT_MASK_MOTION);
    xcb_change_window_attributes(c, window, XCB_CW_EVENT_MASK, &core);
}

void PointerWatch::handleEvent(const xcb_generic_event_t& event)
{
    switch (event.response_type & 0x7f) {
    case XCB_MOTION_NOTIFY:
    case XCB_ENTER_NOTIFY:
    case XCB_LEAVE_NOTIFY: // these have their time in the same place
        m_hasMoved = true;
        m_time = reinterpret_cast<const xcb_motion_notify_event_t&>(event).time;
        return;
    case XCB_MAPPING_NOTIFY: // sent to everybody: the keys have other meanings now
        m_keyboard = nullptr;
        return;
    case XCB_GE_GENERIC:
        break;
    default:
        return;
    }
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (generic.extension != m_connection.extensions().xinput.majorOpcode)
        return;
    if (generic.event_type == XCB_INPUT_RAW_MOTION || generic.event_type == XCB_INPUT_MOTION) {
        m_hasMoved = true;
        // As with raw ones.
        m_time = reinterpret_cast<const xcb_input_motion_event_t&>(event).time;
    } else if (generic.event_type == XCB_INPUT_RAW_BUTTON_PRESS) {
        const auto& press = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
        m_time = press.time;
        if (!isWheel(press.detail))
            m_pressed.push_back(static_cast<int>(press.detail));
    } else if (generic.event_type == XCB_INPUT_RAW_KEY_PRESS ||
               generic.event_type == XCB_INPUT_RAW_KEY_RELEASE) {
        // Both have the same layout.
        const auto& key = reinterpret_cast<const xcb_input_raw_key_press_event_t&>(event);
        m_keys.push_back({static_cast<xcb_keycode_t>(key.detail),
                          generic.event_type == XCB_INPUT_RAW_KEY_PRESS, key.time});
    }
}

void PointerWatch::eventsHandled()
{
    if (!m_keys.empty())
        tellKeys();
    if (m_hasMoved || !m_pressed.empty())
        lookAtPointer();
    if (m_restsAt && m_runLoop.now() >= *m_restsAt) {
        m_restsAt.reset();
        tellStop(m_trail.last());
    }
}

void PointerWatch::tellStop(QPoint place) const
{
    m_listeners.notify([place](WindowListener& listener) { listener.pointerStops(place); });
}

void PointerWatch::lookAtPointer()
{
    m_hasMoved = false;
    const std::vector<int> pressed = std::exchange(m_pressed, {});
    const auto reply = m_connection.reply(
        xcb_query_pointer_reply, xcb_query_pointer(m_connection.get(), m_connection.root()));
    if (!reply || !reply->same_screen)
        return;
    const QPoint position(reply->root_x, reply->root_y);
    const Seconds now = m_runLoop.now();
    m_trail.moved(position, m_time, now, m_points.pixelsPerPoint());
    if (position != m_position)
        m_restsAt = now + restTime;
    if (position != m_position || reply->child != m_child) {
        m_position = position;
        m_child = reply->child;
        m_listeners.notify(
            [&](WindowListener& listener) { listener.pointerMoved(position, m_child); });
    }
    if (const auto stop = m_trail.stop())
        tellStop(*stop);
    for (const int button : pressed)
        m_listeners.notify(
            [&](WindowListener& listener) { listener.buttonPressed(button, position); });
}

} // namespace lumbrix::platform::x11
