// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/StringLiterals.h"
#include "platform/linux/LinuxDesktop.h"

#include <xcb/xcb.h>

#include <memory>

namespace lumbrix::platform
{

namespace
{

class Connection final : public LinuxDesktop::DisplayHold
{
public:
    ~Connection() override { xcb_disconnect(m_connection); }
    bool isOpen() const { return xcb_connection_has_error(m_connection) == 0; }

private:
    xcb_connection_t* const m_connection = xcb_connect(nullptr, nullptr); // never null
};

} // namespace

std::unique_ptr<LinuxDesktop::DisplayHold> LinuxDesktop::prepareToolkit(QString& error)
{
    // In a Wayland session the toolkit would otherwise draw where the docks are not; such sessions
    // also ask it to.
    const QByteArray plugin = qgetenv("QT_QPA_PLATFORM");
    if (plugin.isEmpty() || plugin.startsWith("wayland"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    // Tried here, because the toolkit aborts the program when it finds no display.
    auto connection = std::make_unique<Connection>();
    if (connection->isOpen())
        return connection;
    const QString display = qEnvironmentVariable("DISPLAY");
    if (!display.isEmpty())
        error = u"the X display '%1' cannot be opened"_s.arg(display);
    else if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        error = u"this Wayland session has no X display: Lumbrix needs an X11 session, "
                "or Xwayland for the windows of X programs"_s;
    else
        error = u"no X display: DISPLAY is not set"_s;
    return nullptr;
}

} // namespace lumbrix::platform
