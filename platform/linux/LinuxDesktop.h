// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The adapter for X11 desktops: makes every port, or says why it cannot.
#pragma once

#include <QtCore/QString>

#include <memory>

#include "platform/Desktop.h"
#include "platform/RunLoop.h"
#include "platform/StringLiterals.h"

namespace lumbrix::platform
{

struct LinuxDesktopOptions {
    double pixelsPerPoint = 1.0; ///< the toolkit's scale factor
    QString ownBundleIdentifier = u"lumbrix"_s;
};

/// Main thread. Owns the connections and threads; destroying it ends them.
class LinuxDesktop
{
public:
    /// Keeps the display from being reset, as some are when the last program lets go of them.
    class DisplayHold
    {
    public:
        virtual ~DisplayHold() = default;
    };

    /// Before the toolkit is started; to be held until it is. Null when there is no display to run
    /// on; `error` then says why.
    [[nodiscard]] static std::unique_ptr<DisplayHold> prepareToolkit(QString& error);
    /// Null when there is no X server or it lacks what the program needs; `error` then says what.
    static std::unique_ptr<LinuxDesktop> create(RunLoop& runLoop,
                                                const LinuxDesktopOptions& options, QString& error);
    virtual ~LinuxDesktop() = default;
    virtual const Desktop& ports() const = 0;
    /// Ends the threads that feed the ports, which go on answering with what they know. Before the
    /// run loop is shut down, as that waits for every thread.
    virtual void stop() = 0;
};

} // namespace lumbrix::platform
