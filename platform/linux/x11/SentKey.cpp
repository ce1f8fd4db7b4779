// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/SentKey.h"

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/Keymap.h"

namespace lumbrix::platform::x11
{

bool sendShortcut(const Connection& connection, xcb_window_t window, const Shortcut& shortcut)
{
    const auto keymap = Keymap::read(connection);
    const auto places = keymap ? keymap->keycodes() : Keymap::Keycodes{};
    const auto place = static_cast<std::size_t>(shortcut.keyCode);
    if (shortcut.keyCode < 0 || place >= places.size() || places.at(place) == 0)
        return false;
    xcb_key_press_event_t event{};
    event.detail = places.at(place);
    event.root = connection.root();
    event.event = window;
    event.same_screen = 1;
    event.state = shortcut.withShift ? XCB_MOD_MASK_SHIFT : 0;
    bool isSent = true;
    for (const std::uint8_t type : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
        event.response_type = type;
        // Without an event mask it goes to the client that created the window. Toolkits that read
        // keys through the input extension have not selected core key events, but accept these.
        const xcb_void_cookie_t cookie =
            xcb_send_event_checked(connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                                   reinterpret_cast<const char*>(&event));
        const Reply<xcb_generic_error_t> error(xcb_request_check(connection.get(), cookie));
        isSent = isSent && !error && !connection.isBroken();
    }
    return isSent;
}

} // namespace lumbrix::platform::x11
