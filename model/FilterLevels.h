// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

#include <optional>

namespace lumbrix
{

/// Where an application's level comes from.
enum class FilterLevelSource { Application, AllApplications, BuiltIn };

struct AppliedFilterLevel {
    int level = 0;
    FilterLevelSource source = FilterLevelSource::BuiltIn;
};

/// Per-application filter levels, for the window model; the engine implements it. Any thread.
class FilterLevels
{
public:
    virtual ~FilterLevels() = default;
    /// The level stored under a bundle identifier or under "All applications"; null without one.
    virtual std::optional<int> levelForKey(const QString& key) const = 0;
};

} // namespace lumbrix
