// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/WindowFetch.h"

#include "platform/linux/x11/Connection.h"

#include <xcb/res.h>

#include <array>
#include <vector>

namespace lumbrix::platform::x11
{
namespace
{

constexpr std::size_t maxRows = 31;
constexpr int maxDepth = 8; // levels between a client and the root

struct NodeCookies {
    xcb_query_tree_cookie_t tree;
    xcb_get_geometry_cookie_t geometry;
    xcb_get_window_attributes_cookie_t attributes;
};

/// The walk from a client up to the child of the root.
struct Walk {
    WindowRecord* record;
    xcb_window_t node;
    NodeCookies cookies;
    QRect client;
};

NodeCookies askForNode(xcb_connection_t* c, xcb_window_t window)
{
    return {xcb_query_tree(c, window), xcb_get_geometry(c, window),
            xcb_get_window_attributes(c, window)};
}

using Cookies = std::array<xcb_get_property_cookie_t, maxRows>;

/// The bits say which rows.
void sendPropertyRequests(xcb_connection_t* c, const Atoms& atoms, const WindowRecord& record,
                          std::uint32_t bits, Cookies& cookies)
{
    const auto rows = propertyRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (bits & (1U << i))
            cookies[i] = xcb_get_property(c, 0, record.id, rows[i].atomId(atoms),
                                          XCB_GET_PROPERTY_TYPE_ANY, 0, rows[i].maxLongs);
    }
}

void readProperties(const Connection& connection, const Atoms& atoms, WindowRecord& record,
                    std::uint32_t bits, const Cookies& cookies)
{
    const auto rows = propertyRows();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!(bits & (1U << i)))
            continue;
        const auto reply = connection.reply(xcb_get_property_reply, cookies[i]);
        if (reply)
            rows[i].apply(record, PropertyValue{reply.get()}, atoms);
        else
            record.isGone = true;
    }
}

/// True when the walk has to go on from the parent.
bool readNode(const Connection& connection, Walk& walk)
{
    const auto tree = connection.reply(xcb_query_tree_reply, walk.cookies.tree);
    const auto geometry = connection.reply(xcb_get_geometry_reply, walk.cookies.geometry);
    const auto attributes =
        connection.reply(xcb_get_window_attributes_reply, walk.cookies.attributes);
    WindowRecord& record = *walk.record;
    if (!tree || !geometry || !attributes) {
        // A frame may vanish under a client that lives on; its reparenting is then announced.
        record.isGone = record.isGone || walk.node == record.id;
        return false;
    }
    const int border = geometry->border_width;
    const QRect outer(geometry->x, geometry->y, geometry->width + 2 * border,
                      geometry->height + 2 * border);
    if (tree->parent == connection.root() || tree->parent == XCB_NONE) {
        record.frame = walk.node;
        record.frameRect = outer;
        record.isMapped = attributes->map_state != XCB_MAP_STATE_UNMAPPED;
        record.clientRect =
            walk.node == record.id ? QRect(QPoint(0, 0), outer.size()) : walk.client;
        return false;
    }
    walk.client = walk.node == record.id ? outer : walk.client.translated(outer.topLeft());
    walk.node = tree->parent;
    return true;
}

void walkToFrames(const Connection& connection, std::vector<Walk> walks)
{
    for (int depth = 0; depth < maxDepth && !walks.empty(); ++depth) {
        std::vector<Walk> further;
        for (Walk& walk : walks)
            if (readNode(connection, walk))
                further.push_back(walk);
        for (Walk& walk : further)
            walk.cookies = askForNode(connection.get(), walk.node);
        walks = std::move(further);
    }
    for (const Walk& walk : walks) { // deeper than any real nesting
        xcb_discard_reply(connection.get(), walk.cookies.tree.sequence);
        xcb_discard_reply(connection.get(), walk.cookies.geometry.sequence);
        xcb_discard_reply(connection.get(), walk.cookies.attributes.sequence);
    }
}

void fetchMissingPids(const Connection& connection, std::span<WindowRecord* const> records)
{
    std::vector<xcb_window_t> windows;
    std::vector<WindowRecord*> lacking;
    for (WindowRecord* record : records) {
        if ((record->dirty & pidBit()) && !record->isGone && !record->pidProperty &&
            !record->clientPid) {
            windows.push_back(record->id);
            lacking.push_back(record);
        }
    }
    if (windows.empty())
        return;
    const auto pids = clientPids(connection, windows);
    for (std::size_t i = 0; i < lacking.size(); ++i)
        lacking[i]->clientPid = pids[i];
}

/// Once it is known which are docks.
void fetchDockRows(const Connection& connection, const Atoms& atoms,
                   std::span<WindowRecord* const> records)
{
    const auto wanted = [](const WindowRecord& record) {
        return record.isDock() && !record.isGone
                   ? dockBits() & (record.hasDockRows ? record.dirty : ~0U)
                   : 0U;
    };
    std::vector<Cookies> cookies(records.size());
    for (std::size_t i = 0; i < records.size(); ++i)
        sendPropertyRequests(connection.get(), atoms, *records[i], wanted(*records[i]), cookies[i]);
    for (std::size_t i = 0; i < records.size(); ++i) {
        readProperties(connection, atoms, *records[i], wanted(*records[i]), cookies[i]);
        records[i]->hasDockRows = records[i]->isDock();
    }
}

} // namespace

void fetchWindows(const Connection& connection, const Atoms& atoms,
                  std::span<WindowRecord* const> records)
{
    const std::uint32_t ofDocks = dockBits();
    std::vector<Cookies> cookies(records.size());
    std::vector<Walk> walks;
    for (std::size_t i = 0; i < records.size(); ++i) {
        sendPropertyRequests(connection.get(), atoms, *records[i], records[i]->dirty & ~ofDocks,
                             cookies[i]);
        if (records[i]->dirty & geometryBit)
            walks.push_back({records[i], records[i]->id,
                             askForNode(connection.get(), records[i]->id), QRect()});
    }
    for (std::size_t i = 0; i < records.size(); ++i)
        readProperties(connection, atoms, *records[i], records[i]->dirty & ~ofDocks, cookies[i]);
    fetchDockRows(connection, atoms, records);
    walkToFrames(connection, std::move(walks));
    fetchMissingPids(connection, records);
    for (WindowRecord* record : records)
        record->dirty = 0;
}

std::vector<std::optional<std::int32_t>> clientPids(const Connection& connection,
                                                    std::span<const xcb_window_t> windows)
{
    std::vector<std::optional<std::int32_t>> pids(windows.size());
    if (!connection.extensions().resource.atLeast(1, 2))
        return pids;
    std::vector<xcb_res_query_client_ids_cookie_t> cookies;
    for (const xcb_window_t window : windows) {
        const xcb_res_client_id_spec_t spec{window, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
        cookies.push_back(xcb_res_query_client_ids(connection.get(), 1, &spec));
    }
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const auto reply = connection.reply(xcb_res_query_client_ids_reply, cookies[i]);
        if (!reply)
            continue;
        for (auto it = xcb_res_query_client_ids_ids_iterator(reply.get()); it.rem;
             xcb_res_client_id_value_next(&it)) {
            if ((it.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) &&
                xcb_res_client_id_value_value_length(it.data) > 0) {
                const auto pid = static_cast<std::int32_t>(*xcb_res_client_id_value_value(it.data));
                if (pid > 0)
                    pids[i] = pid;
            }
        }
    }
    return pids;
}

} // namespace lumbrix::platform::x11
