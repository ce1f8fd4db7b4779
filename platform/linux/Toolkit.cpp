// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/LinuxDesktop.h"

#include <xcb/xcb.h>

#include <memory>

namespace lumbrix::platform
{

bool LinuxDesktop::prepareToolkit(QString& error)
{
    // In a Wayland session the toolkit would otherwise draw where the docks are not.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    // Tried here, because the toolkit aborts the program when it finds no display.
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), &xcb_disconnect);
    if (xcb_connection_has_error(connection.get()) == 0)
        return true;
    const QString display = qEnvironmentVariable("DISPLAY");
    error = display.isEmpty() ? QStringLiteral("no X display: DISPLAY is not set")
                              : QStringLiteral("the X display '%1' cannot be opened").arg(display);
    return false;
}

} // namespace lumbrix::platform
