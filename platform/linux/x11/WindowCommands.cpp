// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/WindowCommands.h"

#include "platform/linux/x11/Connection.h"

#include <algorithm>
#include <iterator>

namespace lumbrix::platform::x11
{

WindowCommands::WindowCommands(const Connection& connection, const Atoms& atoms, const WakeFd& wake)
    : m_connection(connection), m_atoms(atoms), m_wake(wake), m_clock(connection.newId())
{
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection.get(), 0, m_clock, connection.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK,
                      &events);
}

void WindowCommands::post(Command command)
{
    {
        const std::lock_guard lock(m_mutex);
        m_posted.push_back(std::move(command));
    }
    m_wake.wake();
}

void WindowCommands::tellWindowManager(xcb_window_t window, AtomName type,
                                       const std::array<std::uint32_t, 5>& data) const
{
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = m_atoms[type];
    std::copy(data.begin(), data.end(), message.data.data32);
    xcb_send_event(m_connection.get(), 0, m_connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
}

void WindowCommands::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY)
        return;
    const auto& notify = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (notify.window != m_clock)
        return;
    for (const Command& command : std::exchange(m_waiting, {}))
        command(notify.time);
}

void WindowCommands::eventsHandled()
{
    std::vector<Command> posted;
    {
        const std::lock_guard lock(m_mutex);
        posted.swap(m_posted);
    }
    if (posted.empty())
        return;
    std::move(posted.begin(), posted.end(), std::back_inserter(m_waiting));
    // Appending nothing changes nothing, but causes an event with the server's time.
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_APPEND, m_clock,
                        m_atoms[AtomName::LumbrixTimestamp], XCB_ATOM_INTEGER, 8, 0, nullptr);
}

} // namespace lumbrix::platform::x11
