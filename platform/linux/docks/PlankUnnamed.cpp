// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankUnnamed.h"

#include <algorithm>
#include <cstdlib>

namespace lumbrix::platform
{

namespace
{

using Candidate = PlankUnnamed::Candidate;

// Empty unless the candidates' positions match the free positions, all moved by the same distance:
// the dock does not write new values when it has grown at one end and all items have moved.
std::vector<QString> orderByHints(std::vector<Candidate> candidates, const std::vector<int>& free,
                                  int pitch)
{
    if (candidates.empty() || candidates.size() != free.size())
        return {};
    std::ranges::stable_sort(candidates, {}, &Candidate::hint); // those without one first
    std::vector<QString> order;
    for (std::size_t i = 0; i < free.size(); ++i) {
        if (!candidates[i].hint || !candidates.front().hint)
            return {};
        const int movedBy = *candidates[i].hint - free[i];
        if (std::abs(movedBy - (*candidates.front().hint - free.front())) >= pitch / 4)
            return {};
        order.push_back(candidates[i].path);
    }
    return order;
}

} // namespace

std::vector<QString> PlankUnnamed::assign(const std::vector<Candidate>& candidates,
                                          const std::vector<int>& free, int pitch)
{
    std::vector<QString> told = orderByHints(candidates, free, pitch);
    if (!told.empty()) {
        m_order = std::move(told);
        return m_order;
    }
    std::erase_if(m_order, [&](const QString& path) {
        return std::ranges::find(candidates, path, &Candidate::path) == candidates.end();
    });
    for (const Candidate& candidate : candidates)
        if (std::ranges::find(m_order, candidate.path) == m_order.end())
            m_order.push_back(candidate.path);
    const auto count = static_cast<std::ptrdiff_t>(std::min(m_order.size(), free.size()));
    return {m_order.begin(), m_order.begin() + count};
}

} // namespace lumbrix::platform
