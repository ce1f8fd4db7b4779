// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/PopupWatch.h"

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/WindowFetch.h"
#include "platform/linux/x11/X11WindowTracker.h"

#include <algorithm>
#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

PopupMapped::Kind kindOf(std::span<const std::uint32_t> types, const Atoms& atoms)
{
    const auto has = [&](AtomName name) {
        return std::find(types.begin(), types.end(), atoms[name]) != types.end();
    };
    if (has(AtomName::NetWmWindowTypePopupMenu) || has(AtomName::NetWmWindowTypeDropdownMenu) ||
        has(AtomName::NetWmWindowTypeMenu))
        return PopupMapped::Kind::Menu;
    if (has(AtomName::NetWmWindowTypeTooltip))
        return PopupMapped::Kind::Tooltip;
    return PopupMapped::Kind::Other;
}

} // namespace

PopupWatch::PopupWatch(const Connection& connection, const Atoms& atoms,
                       const X11WindowTracker& tracker, const Listeners& listeners)
    : m_connection(connection), m_atoms(atoms), m_tracker(tracker), m_listeners(listeners)
{
}

void PopupWatch::handleEvent(const xcb_generic_event_t& event)
{
    switch (event.response_type & 0x7f) {
    case XCB_MAP_NOTIFY: {
        const auto& map = reinterpret_cast<const xcb_map_notify_event_t&>(event);
        if (map.event == m_connection.root() && map.override_redirect)
            m_mapped.push_back(map.window);
        break;
    }
    case XCB_UNMAP_NOTIFY: {
        const auto& unmap = reinterpret_cast<const xcb_unmap_notify_event_t&>(event);
        if (unmap.event == m_connection.root()) {
            std::erase(m_mapped, unmap.window);
            m_unmapped.push_back(unmap.window);
        }
        break;
    }
    case XCB_CONFIGURE_NOTIFY: {
        const auto& move = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        if (move.event == m_connection.root() && move.override_redirect)
            m_moved.insert(move.window);
        break;
    }
    }
}

void PopupWatch::eventsHandled()
{
    for (const xcb_window_t window : std::exchange(m_unmapped, {}))
        m_listeners.notify([&](WindowListener& listener) { listener.popupUnmapped(window); });
    tellMapped();
    for (const xcb_window_t window : std::exchange(m_moved, {}))
        if (!m_tracker.isFrame(window))
            m_listeners.notify([&](WindowListener& listener) { listener.popupMoved(window); });
}

void PopupWatch::tellMapped()
{
    std::vector<xcb_window_t> windows = std::exchange(m_mapped, {});
    // Window managers make their frames override-redirect too.
    std::erase_if(windows, [this](xcb_window_t window) { return m_tracker.isFrame(window); });
    if (windows.empty())
        return;

    struct Cookies {
        xcb_get_property_cookie_t type, pid;
    };
    std::vector<Cookies> cookies;
    for (const xcb_window_t window : windows) {
        const auto property = [&](AtomName name, std::uint32_t longs) {
            return xcb_get_property(m_connection.get(), 0, window, m_atoms[name],
                                    XCB_GET_PROPERTY_TYPE_ANY, 0, longs);
        };
        cookies.push_back(
            {property(AtomName::NetWmWindowType, 16), property(AtomName::NetWmPid, 1)});
    }
    std::vector<PopupMapped> popups;
    std::vector<xcb_window_t> withoutPid;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto type = m_connection.reply(xcb_get_property_reply, cookies[i].type);
        const auto pid = m_connection.reply(xcb_get_property_reply, cookies[i].pid);
        if (!type || !pid)
            continue; // gone already
        PopupMapped popup;
        popup.id = windows[i];
        popup.kind = kindOf(PropertyValue{type.get()}.longs(), m_atoms);
        const auto pids = PropertyValue{pid.get()}.longs();
        if (!pids.empty() && pids[0] > 0)
            popup.pid = static_cast<std::int32_t>(pids[0]);
        else
            withoutPid.push_back(popup.id);
        popups.push_back(popup);
    }
    const auto missing = clientPids(m_connection, withoutPid);
    for (std::size_t i = 0; i < withoutPid.size(); ++i) {
        const auto it = std::find_if(popups.begin(), popups.end(), [&](const PopupMapped& popup) {
            return popup.id == withoutPid[i];
        });
        it->pid = missing[i];
    }
    for (const PopupMapped& popup : popups)
        m_listeners.notify([&](WindowListener& listener) { listener.popupMapped(popup); });
}

} // namespace lumbrix::platform::x11
