// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Whether what a process holds stays flat over a long time in which it is never the same twice.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "support/Holdings.h"

namespace lumbrix::bench
{

/// What the process held at moments of rest. Such a moment may be above the next one, for what a
/// row has left behind, but what leaks is held at every one of them. So the lowest values are
/// compared: that of the last third with that of the third before it. In the first one caches may
/// fill.
class Growth
{
public:
    /// Moments to tell anything; a quarter of an hour. Before, caches that have a bound fill: the
    /// pictures of windows, and drawings of panels up to 4 MiB.
    static constexpr std::size_t fewest = 24;

    void add(Holdings held) { m_moments.push_back(std::move(held)); }
    void clear() { m_moments.clear(); }
    /// Prints a line for each thing held: the lowest of each third, and the highest of all.
    void print() const;
    /// What has grown; none where there are too few moments to tell.
    std::optional<std::vector<std::string>> grown() const;

private:
    /// Of the third 0, 1 or 2.
    double lowest(const std::string& name, std::size_t third) const;
    bool hasGrown(const std::string& name) const;

    std::vector<Holdings> m_moments;
};

} // namespace lumbrix::bench
