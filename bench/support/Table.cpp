// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/Table.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace lumbrix::bench
{

std::string figure(double value, const std::string& unit, int digits)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.*f", digits, value);
    return unit.empty() ? text.data() : text.data() + (' ' + unit);
}

void Table::add(const std::string& name, const std::string& value, const std::string& yardstick,
                const std::string& ratio, const std::string& aim)
{
    m_rows.push_back({name, value, yardstick, ratio, aim});
}

void Table::add(const std::string& name, double value, double yardstick, const std::string& unit,
                const std::string& aim, int digits)
{
    add(name, figure(value, unit, digits), figure(yardstick, unit, digits),
        yardstick > 0 ? figure(value / yardstick, {}, 2) : std::string(), aim);
}

void Table::print() const
{
    const std::vector<std::string> heads{m_title, "value", "yardstick", "ratio", "aim"};
    std::vector<std::size_t> widths(heads.size(), 0);
    for (const auto& row : m_rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], row[i].size());
    for (std::size_t i = 0; i < heads.size(); ++i)
        widths[i] = widths[i] == 0 && i > 0 ? 0 : std::max(widths[i], heads[i].size());
    const auto printRow = [&](const std::vector<std::string>& row) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const int width = static_cast<int>(widths[i]);
            const bool isText = i == 0 || i + 1 == row.size();
            if (width != 0)
                std::printf("%s%*s", i == 0 ? "" : "   ", isText ? -width : width, row[i].c_str());
        }
        std::printf("\n");
    };
    std::printf("\n");
    printRow(heads);
    for (const auto& row : m_rows)
        printRow(row);
    std::fflush(stdout);
}

} // namespace lumbrix::bench
