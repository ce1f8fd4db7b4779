// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which application a window belongs to.
#pragma once

#include <QtCore/QUrl>

#include "platform/Workspace.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/applications/ProcessNames.h"
#include "platform/linux/x11/TrackedWindow.h"

namespace lumbrix::platform
{

struct ApplicationIdentity {
    QString key; ///< windows with the same key belong together
    DesktopEntryPtr entry;
    QString className;
    QString executablePath;

    QString localizedName() const; ///< never empty
    QString bundleIdentifier() const;
    QUrl bundleUrl() const;
    ApplicationRole role() const;
};

/// By desktop entry: the one whose StartupWMClass matches either part of WM_CLASS, then the one
/// whose id does, then the one of the window's program. Without an entry by WM_CLASS, then by
/// program. Any thread; may read files.
ApplicationIdentity identifyApplication(const x11::TrackedWindow& window, DesktopEntries& entries,
                                        const ProcessReader& reader);

/// The URL of the entry's file, otherwise a made-up one; a file URL in either case, because callers
/// compare paths.
QUrl bundleUrlOf(const DesktopEntryPtr& entry, const QString& key);

/// Whether both states of a window identify the same owner.
bool isSameOwner(const x11::TrackedWindow& before, const x11::TrackedWindow& after);

/// Whether windows of this type belong to an application: docks, desktops, menus and the like do
/// not.
bool isApplicationWindow(const x11::TrackedWindow& window);

} // namespace lumbrix::platform
