// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Distinguishes the X server of a Wayland session, which only serves its X programs, from one that
// has the whole desktop.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace lumbrix::platform::x11
{

class Connection;

/// The available evidence.
struct SessionSigns {
    QString sessionType;       ///< XDG_SESSION_TYPE
    QString waylandDisplay;    ///< WAYLAND_DISPLAY
    bool hasExtension = false; ///< the server's own, since Xwayland 23
    QStringList outputs;       ///< names; they identify Xwayland up to version 22
};

/// Both the environment and the server must say so: a nested X server has all windows of its own
/// desktop, and so has an Xwayland that is run outside a Wayland session.
bool isOfWaylandSession(const SessionSigns& signs);
/// The same for this server and the environment. Queries the server only if the environment is a
/// Wayland session.
bool isOfWaylandSession(const Connection& connection);

} // namespace lumbrix::platform::x11
