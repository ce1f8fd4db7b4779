// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Tells an X server that a Wayland session runs, for those of its programs that use X, from one
// that has the desktop to itself.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace lumbrix::platform::x11
{

class Connection;

/// What there is to go by.
struct SessionSigns {
    QString sessionType;       ///< XDG_SESSION_TYPE
    QString waylandDisplay;    ///< WAYLAND_DISPLAY
    bool hasExtension = false; ///< the server's own, since Xwayland 23
    QStringList outputs;       ///< names; up to Xwayland 22 they give it away
};

/// Both have to say so: a nested X server has all windows of its own desktop, and an Xwayland that
/// somebody runs outside of such a session has, too.
bool isOfWaylandSession(const SessionSigns& signs);
/// The same of this server and the environment. Asks the server where the environment says so.
bool isOfWaylandSession(const Connection& connection);

} // namespace lumbrix::platform::x11
