// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// This program as an installed application: its executable, and whether the Dock shows it.
#pragma once

#include <QtCore/QString>

namespace lumbrix::platform
{

/// Main thread. Failures are silent.
class ApplicationBundle
{
public:
    virtual ~ApplicationBundle() = default;
    /// The absolute path of the program.
    virtual QString path() const = 0;
    virtual QString shortVersionString() const = 0;
    /// False for one that runs from where it was built. Nothing outside may then refer to it: that
    /// place is gone with the next clean build.
    virtual bool isInstalled() const = 0;

    /// Sets whether the program has an icon in the Dock from its next start on. Does nothing on a
    /// platform where the setting alone decides that.
    virtual void setShowsInDock(bool on) = 0;
    /// Makes the Dock show the running program.
    virtual void transformToForegroundApplication() = 0;
    /// Whether a Dock shows only running programs with windows, minimised ones included.
    virtual bool isShownByWindows() const = 0;

    /// Arranges for the program to be started again as soon as this process has ended; the caller
    /// must end it. False if that failed.
    virtual bool relaunch() = 0;
};

} // namespace lumbrix::platform
