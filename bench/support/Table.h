// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Figures in aligned columns.
#pragma once

#include <string>
#include <vector>

namespace lumbrix::bench
{

/// The number with so many digits after the point, and the unit after it.
std::string figure(double value, const std::string& unit = {}, int digits = 1);

/// Rows of "figure, value, yardstick, ratio, aim" under a title; columns that no row fills are left
/// out.
class Table
{
public:
    explicit Table(std::string title) : m_title(std::move(title)) {}

    /// Any of the last three may be empty.
    void add(const std::string& name, const std::string& value, const std::string& yardstick = {},
             const std::string& ratio = {}, const std::string& aim = {});
    /// With the ratio of the two; no ratio when the yardstick is nothing.
    void add(const std::string& name, double value, double yardstick, const std::string& unit,
             const std::string& aim = {}, int digits = 1);
    /// Writes it to standard output.
    void print() const;

private:
    std::string m_title;
    std::vector<std::vector<std::string>> m_rows;
};

} // namespace lumbrix::bench
