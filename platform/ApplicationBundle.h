// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// This program as the desktop knows it: what is installed, and whether it shows in the Dock.
#pragma once

#include <QtCore/QString>

namespace lumbrix::platform
{

/// Main thread. Failures are silent.
class ApplicationBundle
{
public:
    virtual ~ApplicationBundle() = default;
    /// What starts the program; absolute.
    virtual QString path() const = 0;
    virtual QString shortVersionString() const = 0;

    /// Whether the program is one with an icon in the Dock from its next start on. Where nothing is
    /// stored for that beside the setting, this does nothing.
    virtual void setShowsInDock(bool on) = 0;
    /// Makes the running program one that the Dock shows.
    virtual void transformToForegroundApplication() = 0;
    /// Whether a Dock shows running programs by their windows, minimised ones included, so that one
    /// without a window has no icon.
    virtual bool isShownByWindows() const = 0;

    /// Has the program started again as soon as this process has ended, which is up to the caller.
    /// False when it will not be.
    virtual bool relaunch() = 0;
};

} // namespace lumbrix::platform
