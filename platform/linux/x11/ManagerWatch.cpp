// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/ManagerWatch.h"

#include "platform/Log.h"
#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/WindowFetch.h"
#include "platform/linux/x11/X11WindowTracker.h"

#include <algorithm>
#include <array>
#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

constexpr std::uint32_t maximumText = 64; ///< of a name, in units of four bytes

QString textIn(const xcb_get_property_reply_t* reply)
{
    const auto bytes = PropertyValue{reply}.bytes();
    const auto end = std::find(bytes.begin(), bytes.end(), '\0');
    return QString::fromUtf8(bytes.data(), std::distance(bytes.begin(), end));
}

} // namespace

ManagerWatch::ManagerWatch(const Connection& connection, const Atoms& atoms,
                           const X11WindowTracker& tracker, const Listeners& listeners)
    : m_connection(connection), m_atoms(atoms), m_tracker(tracker), m_listeners(listeners)
{
}

bool ManagerWatch::isManagers(xcb_window_t window) const
{
    return m_check != XCB_NONE && m_connection.clientOf(window) == m_connection.clientOf(m_check);
}

void ManagerWatch::handleEvent(const xcb_generic_event_t& event)
{
    switch (event.response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY: {
        const auto& property = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        m_isManagerDirty =
            m_isManagerDirty ||
            (property.window == m_connection.root() &&
             property.atom == m_atoms[AtomName::NetSupportingWmCheck]) ||
            (property.window == m_check && property.atom == m_atoms[AtomName::NetWmName]);
        break;
    }
    case XCB_MAP_NOTIFY: {
        const auto& map = reinterpret_cast<const xcb_map_notify_event_t&>(event);
        if (map.event == m_connection.root() && map.override_redirect && isManagers(map.window))
            m_mapped.push_back(map.window);
        break;
    }
    case XCB_CONFIGURE_NOTIFY: {
        const auto& change = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
        const auto it = m_windows.find(change.window);
        if (it != m_windows.end()) {
            it->second.rect = QRect(change.x, change.y, change.width, change.height);
            m_isChanged = true;
        }
        break;
    }
    case XCB_UNMAP_NOTIFY: {
        const auto& unmap = reinterpret_cast<const xcb_unmap_notify_event_t&>(event);
        std::erase(m_mapped, unmap.window);
        m_isChanged = m_windows.erase(unmap.window) > 0 || m_isChanged;
        break;
    }
    case XCB_DESTROY_NOTIFY: {
        const auto& destroy = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
        std::erase(m_mapped, destroy.window);
        m_isChanged = m_windows.erase(destroy.window) > 0 || m_isChanged;
        break;
    }
    default:
        break;
    }
}

void ManagerWatch::eventsHandled()
{
    if (std::exchange(m_isManagerDirty, false))
        fetchManager();
    if (!m_mapped.empty())
        fetchMapped();
    if (!std::exchange(m_isChanged, false))
        return;
    m_manager.windows.clear();
    for (const auto& [id, window] : m_windows)
        m_manager.windows.push_back(window);
    m_listeners.notify([this](WindowListener& listener) { listener.managerChanged(m_manager); });
}

void ManagerWatch::fetchManager()
{
    xcb_connection_t* c = m_connection.get();
    const auto check = m_connection.reply(xcb_get_property_reply,
                                          xcb_get_property(c, 0, m_connection.root(),
                                                           m_atoms[AtomName::NetSupportingWmCheck],
                                                           XCB_ATOM_WINDOW, 0, 1));
    const auto ids = PropertyValue{check.get()}.longs();
    m_check = ids.empty() ? XCB_NONE : ids[0];
    m_manager = {};
    if (m_connection.isOwn(m_check)) // of an ended client, whose ids are ours by now
        m_check = XCB_NONE;
    if (m_check != XCB_NONE) {
        // Some announce the window with their name before they write the name.
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(c, m_check, XCB_CW_EVENT_MASK, &events);
        const auto name = m_connection.reply(
            xcb_get_property_reply, xcb_get_property(c, 0, m_check, m_atoms[AtomName::NetWmName],
                                                     XCB_GET_PROPERTY_TYPE_ANY, 0, maximumText));
        m_manager.name = textIn(name.get());
        m_manager.pid = clientPids(m_connection, std::array{m_check}).front().value_or(0);
    }
    qCDebug(log::session, "the window manager is %s",
            m_check == XCB_NONE ? "not there" : qUtf8Printable(m_manager.name));
    m_isRunning = m_check != XCB_NONE;
    std::erase_if(m_windows, [this](const auto& window) { return !isManagers(window.first); });
    m_isChanged = true;
}

void ManagerWatch::fetchMapped()
{
    std::vector<xcb_window_t> windows = std::exchange(m_mapped, {});
    std::erase_if(windows, [this](xcb_window_t window) { return m_tracker.isFrame(window); });
    struct Cookies {
        xcb_get_geometry_cookie_t geometry;
        xcb_get_property_cookie_t name, type;
    };
    std::vector<Cookies> cookies;
    cookies.reserve(windows.size());
    xcb_connection_t* c = m_connection.get();
    for (const xcb_window_t window : windows) {
        cookies.push_back({xcb_get_geometry(c, window),
                           xcb_get_property(c, 0, window, XCB_ATOM_WM_CLASS,
                                            XCB_GET_PROPERTY_TYPE_ANY, 0, maximumText),
                           xcb_get_property(c, 0, window, m_atoms[AtomName::NetWmWindowType],
                                            XCB_GET_PROPERTY_TYPE_ANY, 0, maximumText)});
    }
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto geometry = m_connection.reply(xcb_get_geometry_reply, cookies[i].geometry);
        const auto name = m_connection.reply(xcb_get_property_reply, cookies[i].name);
        const auto type = m_connection.reply(xcb_get_property_reply, cookies[i].type);
        // Windows of one pixel show nothing; they hold properties or the focus.
        if (!geometry || geometry->width <= 1 || geometry->height <= 1)
            continue;
        const auto kind = windowTypeOf(PropertyValue{type.get()}.longs(), m_atoms);
        m_windows[windows[i]] = {
            .id = windows[i],
            .rect = QRect(geometry->x, geometry->y, geometry->width, geometry->height),
            .depth = geometry->depth,
            .classInstance = textIn(name.get()),
            .isPlain = kind.value_or(WindowType::Normal) == WindowType::Normal};
        m_isChanged = true;
    }
}

} // namespace lumbrix::platform::x11
