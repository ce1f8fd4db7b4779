// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the connections of a process hold in the X server.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace lumbrix::bench
{

/// The resource-id bases of a process's connections, which name them to the server. Empty when it
/// has none. Main thread; the connection is any to the same server.
std::vector<std::uint32_t> clientsOf(xcb_connection_t* connection, int pid);

struct ServerFigures {
    int clients = 0; ///< connections
    int resources = 0;
    std::map<std::string, int> byType; ///< "WINDOW", "PIXMAP" ...
    std::uint64_t pixmapBytes = 0;     ///< a pixmap that several hold counts in part
};

/// All connections of the process together; none when it has none.
std::optional<ServerFigures> serverFigures(xcb_connection_t* connection, int pid);

} // namespace lumbrix::bench
