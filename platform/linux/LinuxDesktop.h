// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The adapter for X11 desktops: creates every port, or reports why it cannot.
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
    /// The name of the desktop entry that is installed.
    QString ownBundleIdentifier = u"org.lumbrix.Lumbrix"_s;
};

/// Main thread. Owns the connections and threads; the destructor ends them.
class LinuxDesktop
{
public:
    /// Keeps the display from being reset, as some servers do when the last client disconnects.
    class DisplayHold
    {
    public:
        virtual ~DisplayHold() = default;
    };

    /// Must be called before the toolkit is started, and the result held until it is. Null if there
    /// is no usable display; `error` then says why.
    [[nodiscard]] static std::unique_ptr<DisplayHold> prepareToolkit(QString& error);
    /// Null if there is no X server or it lacks something that the program needs; `error` then says
    /// what.
    static std::unique_ptr<LinuxDesktop> create(RunLoop& runLoop,
                                                const LinuxDesktopOptions& options, QString& error);
    virtual ~LinuxDesktop() = default;
    virtual const Desktop& ports() const = 0;
    /// Ends the threads that feed the ports; the ports still return the last known data. Must be
    /// called before the run loop is shut down, as that waits for every thread.
    virtual void stop() = 0;
};

} // namespace lumbrix::platform
