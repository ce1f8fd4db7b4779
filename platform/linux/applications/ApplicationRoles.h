// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The roles of this desktop's programs: players, mail and calendars.
#pragma once

#include <QtCore/QString>

#include "platform/Workspace.h"
#include "platform/linux/applications/DesktopEntry.h"

namespace lumbrix::platform
{

/// The table of programs with a role. Any thread; case is ignored.

/// By the id of a desktop entry; for a window without an entry by WM_CLASS or the program.
ApplicationRole roleOfApplicationId(const QString& id);

/// By its id, otherwise by the program that it starts.
ApplicationRole roleOfEntry(const DesktopEntry& entry);

/// Also by the last part of such an id, as in a media player's bus name: "Lollypop" for
/// org.gnome.Lollypop.
ApplicationRole roleOfShortName(const QString& name);

} // namespace lumbrix::platform
