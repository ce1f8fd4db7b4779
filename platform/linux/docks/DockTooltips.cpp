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

bool DockTooltips::isOwn(xcb_window_t window) const
{
    return m_connection.clientOf(window) == m_ownClient;
}

void DockTooltips::popupMapped(const x11::PopupMapped& popup)
{
    if (popup.pid == m_ownPid) {
        m_ownClient = m_connection.clientOf(popup.id);
        arrange();
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
    if (isOwn(window) || m_shown.contains(window))
        arrange();
}

void DockTooltips::popupUnmapped(xcb_window_t window)
{
    if (isOwn(window)) {
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
    if (m_shown.empty())
        return;
    const std::set<std::uint32_t> clients = dockClientsUnderPointer();
    const std::vector<QRect> previews = clients.empty() ? std::vector<QRect>() : row();
    for (auto& [window, home] : m_shown) {
        const std::optional<QRect> place = placeOf(window);
        // When the pointer has left the dock, the dock hides the tooltip itself.
        if (!place || !clients.contains(m_connection.clientOf(window)))
            continue;
        if (place->topLeft() != away)
            home.reset();
        const QRect wanted(home.value_or(place->topLeft()), place->size());
        const bool isInTheWay = std::ranges::any_of(
            previews, [&](const QRect& preview) { return preview.intersects(wanted); });
        if (isInTheWay && !home) {
            home = wanted.topLeft();
            move(window, away);
        } else if (!isInTheWay && home) {
            move(window, *home);
            home.reset();
        }
    }
    m_connection.flush();
}

std::vector<QRect> DockTooltips::row() const
{
    xcb_connection_t* const c = m_connection.get();
    const auto tree =
        m_connection.reply(xcb_query_tree_reply, xcb_query_tree(c, m_connection.root()));
    if (!tree)
        return {};
    struct Question {
        xcb_get_window_attributes_cookie_t attributes;
        xcb_get_property_cookie_t role;
        xcb_get_geometry_cookie_t geometry;
    };
    const xcb_window_t* const children = xcb_query_tree_children(tree.get());
    const int count = xcb_query_tree_children_length(tree.get());
    std::vector<Question> questions;
    for (int i = 0; i < count; ++i) {
        if (isOwn(children[i])) {
            questions.push_back({xcb_get_window_attributes(c, children[i]),
                                 xcb_get_property(c, 0, children[i], m_role, XCB_ATOM_ANY, 0, 8),
                                 xcb_get_geometry(c, children[i])});
        }
    }
    std::vector<QRect> result;
    for (const Question& question : questions) {
        const auto attributes =
            m_connection.reply(xcb_get_window_attributes_reply, question.attributes);
        const auto role = m_connection.reply(xcb_get_property_reply, question.role);
        const auto area = m_connection.reply(xcb_get_geometry_reply, question.geometry);
        if (!attributes || !role || !area || attributes->map_state != XCB_MAP_STATE_VIEWABLE)
            continue;
        // Not the counts on the icons, which are always shown.
        const std::string_view name(static_cast<const char*>(xcb_get_property_value(role.get())),
                                    xcb_get_property_value_length(role.get()));
        if (name == "preview" || name == "bubble")
            result.emplace_back(area->x, area->y, area->width, area->height);
    }
    return result;
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
