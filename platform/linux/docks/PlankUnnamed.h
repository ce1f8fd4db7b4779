// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which application without a desktop entry stands at which place of Plank, which names none of
// them.
#pragma once

#include <QtCore/QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace lumbrix::platform
{

/// Remembers their order: new items come behind the others. Where the dock tells the windows' icon
/// places, these decide, but only when they fit as a whole: for some time after an item came or
/// went, they are those of before, or wrong.
class PlankUnnamed
{
public:
    struct Candidate {
        QString path;              ///< of the application's made-up URL
        std::optional<int> hint{}; ///< middle of its icon along the edge, as told to its windows
        std::int32_t pid = 0;      ///< for the caller to sort by
    };

    /// Candidates that are new come in the order given. For each of the free middles along the
    /// edge, ascending, the application that stands there; with fewer candidates the last middles
    /// stay without.
    std::vector<QString> assign(const std::vector<Candidate>& candidates,
                                const std::vector<int>& free, int pitch);

private:
    std::vector<QString> m_order;
};

} // namespace lumbrix::platform
