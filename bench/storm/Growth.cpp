// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "storm/Growth.h"

#include <algorithm>
#include <cstdio>
#include <limits>

namespace lumbrix::bench
{
namespace
{

/// How much more the last third may hold. Above what the lowest values of two thirds of a program
/// that leaks nothing differ by, as pictures of windows of random sizes are kept; below what it
/// would be if one fault in ten left a preview's picture behind, or, in an hour, one in five a
/// resource of the server: of these each window that is open takes five, and how many are differs
/// by up to eight.
const std::map<std::string, double> allowances{
    {"resident KiB", 2048}, {"  anonymous KiB", 2048}, {"threads", 1},
    {"descriptors", 2},     {"X connections", 0},      {"X resources", 40},
};

} // namespace

double Growth::lowest(const std::string& name, std::size_t third) const
{
    const std::size_t count = m_moments.size();
    double result = std::numeric_limits<double>::max();
    for (std::size_t i = count * third / 3; i < count * (third + 1) / 3; ++i)
        result = std::min(result, valueOf(m_moments[i], name));
    return result;
}

bool Growth::hasGrown(const std::string& name) const
{
    const auto allowance = allowances.find(name);
    return allowance != allowances.end() && lowest(name, 2) > lowest(name, 1) + allowance->second;
}

void Growth::print() const
{
    std::printf("\n%zu moments of rest; the lowest values of each third\n", m_moments.size());
    if (m_moments.size() < 3)
        return;
    std::printf("%-26s %10s %10s %10s %10s\n", "", "first", "second", "last", "highest");
    std::vector<std::string> names;
    for (const Holdings& held : m_moments)
        for (const auto& [name, value] : held)
            if (std::ranges::find(names, name) == names.end())
                names.push_back(name);
    for (const std::string& name : names) {
        double highest = 0;
        for (const Holdings& held : m_moments)
            highest = std::max(highest, valueOf(held, name));
        std::printf("%-26s %10.0f %10.0f %10.0f %10.0f%s\n", name.c_str(), lowest(name, 0),
                    lowest(name, 1), lowest(name, 2), highest, hasGrown(name) ? "  GROWS" : "");
    }
}

std::optional<std::vector<std::string>> Growth::grown() const
{
    if (m_moments.size() < fewest)
        return std::nullopt;
    std::vector<std::string> result;
    for (const auto& [name, allowance] : allowances)
        if (hasGrown(name))
            result.push_back(name);
    return result;
}

} // namespace lumbrix::bench
