// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the docks show by themselves for the icon under the pointer, and what turns it off.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/DockPreferences.h"

namespace lumbrix::platform
{

/// A flag in GSettings; the path is empty for a schema that has but one. Null when there is none.
using FlagReader =
    std::function<std::optional<bool>(const QString& schema, const QString& path, const char* key)>;

/// As the docks of that program come, but for those that are known to be off; empty for another
/// program. `settingsPath` as in DockState.
std::vector<DockDisplay> ownDisplaysOf(const QString& program, const QString& settingsPath,
                                       const FlagReader& flag);

} // namespace lumbrix::platform
