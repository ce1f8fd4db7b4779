// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/Struts.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "platform/linux/x11/WindowProperties.h"

namespace lumbrix::platform
{

namespace
{

struct Free {
    void operator()(void* memory) const { std::free(memory); }
};

xcb_atom_t atom(xcb_connection_t* connection, const char* name)
{
    const std::unique_ptr<xcb_intern_atom_reply_t, Free> reply(xcb_intern_atom_reply(
        connection,
        xcb_intern_atom(connection, 1, static_cast<std::uint16_t>(std::strlen(name)), name),
        nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

} // namespace

std::optional<QMargins> readStrut(xcb_connection_t* connection, xcb_window_t window)
{
    static const std::array atoms{atom(connection, "_NET_WM_STRUT_PARTIAL"),
                                  atom(connection, "_NET_WM_STRUT")};
    for (const xcb_atom_t property : atoms) {
        if (property == XCB_ATOM_NONE)
            continue;
        const std::unique_ptr<xcb_get_property_reply_t, Free> reply(xcb_get_property_reply(
            connection, xcb_get_property(connection, 0, window, property, XCB_ATOM_CARDINAL, 0, 4),
            nullptr));
        if (const auto strut = strutIn(x11::PropertyValue{reply.get()}.longs()))
            return strut;
    }
    return std::nullopt;
}

std::optional<QMargins> strutIn(std::span<const std::uint32_t> numbers)
{
    if (numbers.size() < 4)
        return std::nullopt;
    const auto side = [&](std::size_t i) {
        return static_cast<int>(std::min<std::uint32_t>(numbers[i], 0x7fff));
    };
    return QMargins(side(0), side(2), side(1), side(3));
}

} // namespace lumbrix::platform
