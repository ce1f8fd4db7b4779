// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/TrayWatch.h"

#include "platform/linux/x11/Connection.h"

#include <xcb/xfixes.h>

namespace lumbrix::platform::x11
{

TrayWatch::TrayWatch(const Connection& connection, const Atoms& atoms)
    : m_connection(connection), m_selection(atoms[AtomName::SystemTray])
{
    xcb_xfixes_select_selection_input(connection.get(), connection.root(), m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    const auto owner = connection.reply(xcb_get_selection_owner_reply,
                                        xcb_get_selection_owner(connection.get(), m_selection));
    m_isTrayRunning = owner && owner->owner != XCB_NONE;
}

void TrayWatch::setChanged(std::function<void()> changed)
{
    const std::lock_guard lock(m_mutex);
    m_changed = std::move(changed);
}

void TrayWatch::handleEvent(const xcb_generic_event_t& event)
{
    if ((event.response_type & 0x7f) !=
        m_connection.extensions().xfixes.firstEvent + XCB_XFIXES_SELECTION_NOTIFY)
        return;
    const auto& notify = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
    if (notify.selection != m_selection)
        return;
    const bool isRunning = notify.owner != XCB_NONE;
    if (m_isTrayRunning.exchange(isRunning) == isRunning)
        return;
    const std::lock_guard lock(m_mutex);
    if (m_changed)
        m_changed();
}

} // namespace lumbrix::platform::x11
