// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/DockTooltips.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace lumbrix::platform
{

namespace
{

// A position outside all screens. A window at this position is one that we have moved there.
constexpr QPoint away(-8192, -8192);

// A window that appears where a button was just pressed was requested by the user.
constexpr int pressReach = 40;

xcb_atom_t roleAtom(const x11::Connection& connection)
{
    constexpr std::string_view name = "WM_WINDOW_ROLE";
    const auto atom = connection.reply(
        xcb_intern_atom_reply, xcb_intern_atom(connection.get(), 0, name.size(), name.data()));
    return atom ? atom->atom : xcb_atom_t{XCB_ATOM_NONE};
}

} // namespace

DockTooltips::DockTooltips(const x11::Connection& connection, const x11::WindowTracker& tracker,
                           std::int32_t ownPid)
    : m_connection(connection), m_tracker(tracker), m_ownPid(ownPid), m_role(roleAtom(connection))
{
}

void DockTooltips::popupMapped(const x11::PopupMapped& popup)
{
    if (popup.pid == m_ownPid) {
        if (const std::optional<QRect> place = placeInRow(popup.id)) {
            m_row[popup.id] = *place;
            arrange();
        }
        return;
    }
    const bool isAskedFor = m_press && (*m_press - m_pointer).manhattanLength() < pressReach;
    if (popup.kind != x11::PopupMapped::Kind::Menu && !isAskedFor) {
        m_shown.try_emplace(popup.id);
        arrange();
    }
}

void DockTooltips::popupMoved(xcb_window_t window)
{
    const auto panel = m_row.find(window);
    if (panel != m_row.end())
        panel->second = placeOf(window).value_or(panel->second);
    if (panel != m_row.end() || m_shown.contains(window))
        arrange();
}

void DockTooltips::popupUnmapped(xcb_window_t window)
{
    if (m_row.erase(window) > 0) {
        arrange();
        return;
    }
    const auto known = m_shown.find(window);
    if (known == m_shown.end())
        return;
    if (known->second) {
        // Its owner may just be moving it to the next icon, which must not be undone.
        xcb_grab_server(m_connection.get());
        const std::optional<QRect> place = placeOf(window);
        if (place && place->topLeft() == away)
            move(window, *known->second);
        xcb_ungrab_server(m_connection.get());
        m_connection.flush();
    }
    m_shown.erase(known);
}

void DockTooltips::pointerMoved(QPoint position, xcb_window_t) { m_pointer = position; }

void DockTooltips::buttonPressed(int, QPoint position) { m_press = position; }

void DockTooltips::arrange()
{
    std::optional<std::set<std::uint32_t>> clients;
    for (auto& [window, home] : m_shown) {
        const std::optional<QRect> place = placeOf(window);
        if (!place)
            continue;
        if (place->topLeft() != away)
            home.reset();
        const QRect wanted(home.value_or(place->topLeft()), place->size());
        const bool isInTheWay = std::ranges::any_of(
            m_row, [&](const auto& panel) { return panel.second.intersects(wanted); });
        if (isInTheWay == home.has_value())
            continue;
        if (!clients)
            clients = dockClientsUnderPointer();
        // When the pointer has left the dock, the dock hides the tooltip itself.
        if (!clients->contains(m_connection.clientOf(window)))
            continue;
        if (isInTheWay) {
            home = wanted.topLeft();
            move(window, away);
        } else {
            move(window, *home);
            home.reset();
        }
    }
    m_connection.flush();
}

// There may be a panel for each window of the desktop, and all that was mapped is told: each is
// asked about once.
std::optional<QRect> DockTooltips::placeInRow(xcb_window_t window) const
{
    xcb_connection_t* const c = m_connection.get();
    const auto roleCookie = xcb_get_property(c, 0, window, m_role, XCB_ATOM_ANY, 0, 8);
    const auto areaCookie = xcb_get_geometry(c, window);
    const auto role = m_connection.reply(xcb_get_property_reply, roleCookie);
    const auto area = m_connection.reply(xcb_get_geometry_reply, areaCookie);
    if (!role || !area)
        return std::nullopt;
    // Not the counts on the icons, which are always shown.
    const std::string_view name(static_cast<const char*>(xcb_get_property_value(role.get())),
                                xcb_get_property_value_length(role.get()));
    if (name != "preview" && name != "bubble")
        return std::nullopt;
    return QRect(area->x, area->y, area->width, area->height);
}

std::set<std::uint32_t> DockTooltips::dockClientsUnderPointer() const
{
    std::set<std::uint32_t> clients;
    bool isDock = false;
    xcb_window_t window = m_connection.root();
    while (window != XCB_NONE) {
        const auto pointer = m_connection.reply(xcb_query_pointer_reply,
                                                xcb_query_pointer(m_connection.get(), window));
        window = pointer ? pointer->child : XCB_NONE;
        if (window != XCB_NONE) {
            clients.insert(m_connection.clientOf(window));
            const x11::TrackedWindowPtr tracked = m_tracker.window(window);
            isDock = isDock || (tracked && tracked->type == x11::WindowType::Dock);
        }
    }
    return isDock ? clients : std::set<std::uint32_t>();
}

std::optional<QRect> DockTooltips::placeOf(xcb_window_t window) const
{
    const auto area =
        m_connection.reply(xcb_get_geometry_reply, xcb_get_geometry(m_connection.get(), window));
    return area ? std::optional(QRect(area->x, area->y, area->width, area->height)) : std::nullopt;
}

void DockTooltips::move(xcb_window_t window, QPoint to) const
{
    const std::uint32_t values[] = {static_cast<std::uint32_t>(to.x()),
                                    static_cast<std::uint32_t>(to.y())};
    xcb_configure_window(m_connection.get(), window, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y,
                         values);
}

} // namespace lumbrix::platform
