// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/ServerFigures.h"

#include <cstdlib>
#include <memory>
#include <xcb/res.h>

namespace lumbrix::bench
{

namespace
{

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T> using Reply = std::unique_ptr<T, Free>;

std::string atomName(xcb_connection_t* connection, xcb_atom_t atom)
{
    const Reply<xcb_get_atom_name_reply_t> reply(
        xcb_get_atom_name_reply(connection, xcb_get_atom_name(connection, atom), nullptr));
    if (!reply)
        return {};
    return {xcb_get_atom_name_name(reply.get()),
            static_cast<std::size_t>(xcb_get_atom_name_name_length(reply.get()))};
}

} // namespace

std::vector<std::uint32_t> clientsOf(xcb_connection_t* connection, int pid)
{
    const xcb_res_client_id_spec_t all{0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const Reply<xcb_res_query_client_ids_reply_t> reply(xcb_res_query_client_ids_reply(
        connection, xcb_res_query_client_ids(connection, 1, &all), nullptr));
    std::vector<std::uint32_t> clients;
    if (!reply)
        return clients;
    for (auto it = xcb_res_query_client_ids_ids_iterator(reply.get()); it.rem != 0;
         xcb_res_client_id_value_next(&it))
        if ((it.data->spec.mask & XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID) != 0 &&
            xcb_res_client_id_value_value_length(it.data) > 0 &&
            *xcb_res_client_id_value_value(it.data) == static_cast<std::uint32_t>(pid))
            clients.push_back(it.data->spec.client);
    return clients;
}

std::optional<ServerFigures> serverFigures(xcb_connection_t* connection, int pid)
{
    const auto clients = clientsOf(connection, pid);
    if (clients.empty())
        return std::nullopt;
    ServerFigures figures;
    for (const std::uint32_t client : clients) {
        const auto typesCookie = xcb_res_query_client_resources(connection, client);
        const auto bytesCookie = xcb_res_query_client_pixmap_bytes(connection, client);
        const Reply<xcb_res_query_client_resources_reply_t> types(
            xcb_res_query_client_resources_reply(connection, typesCookie, nullptr));
        const Reply<xcb_res_query_client_pixmap_bytes_reply_t> bytes(
            xcb_res_query_client_pixmap_bytes_reply(connection, bytesCookie, nullptr));
        if (!types || !bytes)
            continue; // has gone in the meantime
        ++figures.clients;
        figures.pixmapBytes += bytes->bytes + (std::uint64_t{bytes->bytes_overflow} << 32U);
        for (auto it = xcb_res_query_client_resources_types_iterator(types.get()); it.rem != 0;
             xcb_res_type_next(&it)) {
            const auto count = static_cast<int>(it.data->count);
            figures.byType[atomName(connection, it.data->resource_type)] += count;
            figures.resources += count;
        }
    }
    return figures;
}

} // namespace lumbrix::bench
