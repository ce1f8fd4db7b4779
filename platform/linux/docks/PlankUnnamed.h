// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Assigns applications without a desktop entry to positions on Plank, which does not name them.
#pragma once

#include <QtCore/QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace lumbrix::platform
{

/// Remembers their order: new items come after the others. If the dock writes the windows' icon
/// geometry, that decides, but only if all values match: for some time after an item was added or
/// removed they are outdated or wrong.
class PlankUnnamed
{
public:
    struct Candidate {
        QString path;              ///< of the application's made-up URL
        std::optional<int> hint{}; ///< middle of its icon along the edge, as written to its windows
        std::int32_t pid = 0;      ///< for the caller to sort by
    };

    /// New candidates are added in the given order. Returns the application for each of the free
    /// middles along the edge, in ascending order; with fewer candidates the last middles have
    /// none.
    std::vector<QString> assign(const std::vector<Candidate>& candidates,
                                const std::vector<int>& free, int pitch);

private:
    std::vector<QString> m_order;
};

} // namespace lumbrix::platform
