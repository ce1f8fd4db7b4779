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

// Empty unless each place is the one that exactly one candidate tells.
std::vector<QString> orderByHints(const std::vector<Candidate>& candidates,
                                  const std::vector<int>& free, int pitch)
{
    std::vector<QString> order;
    for (const int centre : free) {
        const auto isHere = [&](const Candidate& candidate) {
            return candidate.hint && std::abs(*candidate.hint - centre) < pitch / 4;
        };
        const auto it = std::ranges::find_if(candidates, isHere);
        if (it == candidates.end() || std::ranges::count_if(candidates, isHere) != 1) {
            return {};
        }
        order.push_back(it->path);
    }
    return order.size() == candidates.size() ? order : std::vector<QString>();
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
    for (const Candidate& candidate : candidates) {
        if (std::ranges::find(m_order, candidate.path) == m_order.end()) {
            m_order.push_back(candidate.path);
        }
    }
    const auto count = static_cast<std::ptrdiff_t>(std::min(m_order.size(), free.size()));
    return {m_order.begin(), m_order.begin() + count};
}

} // namespace lumbrix::platform
