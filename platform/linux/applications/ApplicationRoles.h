// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the programs of this desktop are to their user.
#pragma once

#include <QtCore/QString>

#include "platform/Workspace.h"
#include "platform/linux/applications/DesktopEntry.h"

namespace lumbrix::platform
{

/// The one table of programs with a role. Any thread; case is ignored.

/// By the id of a desktop entry, or by what stands for it where a window has no entry: WM_CLASS or
/// the program.
ApplicationRole roleOfApplicationId(const QString& id);

/// By its id, else by the program that it starts.
ApplicationRole roleOfEntry(const DesktopEntry& entry);

/// By the last word of such an id too, as in a media player's name on the message bus:
/// "Lollypop" for org.gnome.Lollypop.
ApplicationRole roleOfShortName(const QString& name);

} // namespace lumbrix::platform
