// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/Pinger.h"

#include "platform/linux/x11/Connection.h"

#include <algorithm>

namespace lumbrix::platform::x11
{

Pinger::Pinger(const Connection& connection, const Atoms& atoms)
    : m_connection(connection), m_atoms(atoms)
{
}

void Pinger::ping(xcb_window_t window, xcb_timestamp_t time, Seconds now)
{
    if (!m_outstanding.try_emplace(window, Outstanding{now + patience}).second)
        return;
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_atoms[AtomName::WmProtocols];
    message.data.data32[0] = m_atoms[AtomName::NetWmPing];
    message.data.data32[1] = time;
    message.data.data32[2] = window;
    xcb_send_event(m_connection.get(), 0, window, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&message));
}

std::optional<xcb_window_t> Pinger::answerIn(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) != XCB_CLIENT_MESSAGE)
        return std::nullopt;
    const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(event);
    if (message.window != m_connection.root() || message.format != 32 ||
        message.type != m_atoms[AtomName::WmProtocols] ||
        message.data.data32[0] != m_atoms[AtomName::NetWmPing])
        return std::nullopt;
    const xcb_window_t window = message.data.data32[2];
    m_outstanding.erase(window);
    return window;
}

std::vector<xcb_window_t> Pinger::takeLate(Seconds now)
{
    std::vector<xcb_window_t> late;
    for (auto& [window, outstanding] : m_outstanding) {
        if (!outstanding.isLate && outstanding.due <= now) {
            outstanding.isLate = true;
            late.push_back(window);
        }
    }
    return late;
}

std::optional<Seconds> Pinger::deadline() const
{
    std::optional<Seconds> first;
    for (const auto& [window, outstanding] : m_outstanding)
        if (!outstanding.isLate)
            first = std::min(first.value_or(outstanding.due), outstanding.due);
    return first;
}

} // namespace lumbrix::platform::x11
