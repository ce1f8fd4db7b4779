// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The tooltips and previews that docks themselves show for the icon under the pointer, and how to
// turn them off.
#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "platform/DockPreferences.h"
#include "platform/linux/docks/DockItem.h"

namespace lumbrix::platform
{

/// A flag in GSettings; the path is empty for a schema with a fixed path. Null if there is no such
/// flag.
using FlagReader =
    std::function<std::optional<bool>(const QString& schema, const QString& path, const char* key)>;

/// The displays of that program's docks by default, without those known to be off; empty for an
/// unknown program. `settingsPath` as in DockState.
std::vector<DockDisplay> ownDisplaysOf(const QString& program, const QString& settingsPath,
                                       const FlagReader& flag);

/// Whether the item is a button that several windows share.
bool standsForGroup(const DockItem& item);
/// Whether that program's panels write on such a button how many they are.
bool countsWindowsItself(const QString& program);

} // namespace lumbrix::platform
