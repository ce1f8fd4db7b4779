// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/DockTooltips.h"

#include <utility>
#include <vector>

namespace lumbrix::platform
{

DockTooltips::DockTooltips(const x11::Connection& connection, std::int32_t ownPid, IsDock isDock)
    : m_connection(connection), m_ownPid(ownPid), m_isDock(std::move(isDock))
{
}

xcb_window_t DockTooltips::clientOf(xcb_window_t window) const
{
    return window & ~xcb_get_setup(m_connection.get())->resource_id_mask;
}

void DockTooltips::popupMapped(const x11::PopupMapped& popup)
{
    if (popup.pid == m_ownPid) {
        m_ownClient = clientOf(popup.id);
        return;
    }
    if (popup.kind != x11::PopupMapped::Kind::Tooltip || !popup.pid || !m_isDock(*popup.pid))
        return;
    const xcb_window_t panel = lowestOwnPanel();
    if (panel == XCB_NONE)
        return;
    const std::uint32_t values[] = {panel, XCB_STACK_MODE_BELOW};
    xcb_configure_window(m_connection.get(), popup.id,
                         XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values);
    m_connection.flush();
}

xcb_window_t DockTooltips::lowestOwnPanel() const
{
    if (m_ownClient == XCB_NONE)
        return XCB_NONE;
    xcb_connection_t* const c = m_connection.get();
    const auto tree =
        m_connection.reply(xcb_query_tree_reply, xcb_query_tree(c, m_connection.root()));
    if (!tree)
        return XCB_NONE;
    const xcb_window_t* const children = xcb_query_tree_children(tree.get());
    const int count = xcb_query_tree_children_length(tree.get());
    std::vector<std::pair<xcb_window_t, xcb_get_window_attributes_cookie_t>> own;
    for (int i = 0; i < count; ++i) {
        if (clientOf(children[i]) == m_ownClient)
            own.emplace_back(children[i], xcb_get_window_attributes(c, children[i]));
    }
    xcb_window_t lowest = XCB_NONE;
    for (const auto& [window, cookie] : own) {
        const auto attributes = m_connection.reply(xcb_get_window_attributes_reply, cookie);
        if (lowest == XCB_NONE && attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE)
            lowest = window;
    }
    return lowest;
}

} // namespace lumbrix::platform
