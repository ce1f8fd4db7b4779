// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/Holdings.h"

#include <algorithm>
#include <cstdio>

#include "support/ProcessFigures.h"
#include "support/ServerFigures.h"

namespace lumbrix::bench
{

std::optional<Holdings> holdingsOf(xcb_connection_t* connection, int pid)
{
    const auto own = processFigures(pid);
    const auto server = serverFigures(connection, pid);
    if (!own || !server)
        return std::nullopt;
    Holdings held{{"resident KiB", static_cast<double>(own->residentKiB)},
                  {"  anonymous KiB", static_cast<double>(own->anonymousKiB)},
                  {"  shared segments KiB", static_cast<double>(own->sharedMemoryKiB)},
                  {"threads", own->threads},
                  {"descriptors", own->descriptors},
                  {"X connections", server->clients},
                  {"X pixmaps KiB", static_cast<double>(server->pixmapBytes) / 1024},
                  {"X resources", server->resources}};
    for (const auto& [type, count] : server->byType)
        held.emplace_back("  " + type, count);
    return held;
}

double valueOf(const Holdings& holdings, const std::string& name)
{
    const auto found = std::ranges::find(holdings, name, &Holdings::value_type::first);
    return found == holdings.end() ? 0 : found->second;
}

void print(const Holdings& start, const Holdings& middle, const Holdings& end, double steps,
           const char* step)
{
    std::printf("\n%-26s %10s %10s %10s %12s  per 1,000 %s, middle to end\n", "", "start", "middle",
                "end", "end/start", step);
    Holdings names = end; // and what only the others had
    for (const Holdings* other : {&start, &middle}) {
        for (const auto& entry : *other)
            if (std::ranges::find(names, entry.first, &Holdings::value_type::first) == names.end())
                names.emplace_back(entry.first, 0);
    }
    for (const auto& [name, last] : names) {
        const double first = valueOf(start, name);
        const double half = valueOf(middle, name);
        std::printf("%-26s %10.0f %10.0f %10.0f %12.3f %+8.1f\n", name.c_str(), first, half, last,
                    first != 0 ? last / first : 0.0, (last - half) * 2000 / steps);
    }
}

} // namespace lumbrix::bench
