// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Starts programs that keep running when this one ends.
#pragma once

#include <QtCore/QUrl>

#include "platform/linux/applications/DesktopEntries.h"

namespace lumbrix::platform
{

/// Any thread; false if nothing could be started.
bool launchEntry(const DesktopEntry& entry);
bool launchExecutable(const QString& program);
/// A program and its arguments.
bool launchCommand(const QStringList& words);
/// The URL of a desktop entry or of a program.
bool launchUrl(DesktopEntries& entries, const QUrl& url);
/// By the name shown in menus, by entry id, or by program.
bool launchByName(DesktopEntries& entries, const QString& name);

} // namespace lumbrix::platform
