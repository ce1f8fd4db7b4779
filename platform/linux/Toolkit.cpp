// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/Log.h"
#include "platform/StringLiterals.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/linux/x11/Connection.h"
#include "platform/pictures/PictureMemory.h"

#include <xcb/xcb.h>

#include <memory>

#include <pwd.h>
#include <unistd.h>

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

/// Where nothing says where the home directory is, the toolkit takes the root directory for it.
void setHome()
{
    if (!qEnvironmentVariableIsEmpty("HOME"))
        return;
    const passwd* user = ::getpwuid(::getuid()); // no other thread runs yet
    if (user && user->pw_dir)
        qputenv("HOME", user->pw_dir);
}

} // namespace

std::unique_ptr<LinuxDesktop::DisplayHold> LinuxDesktop::prepareToolkit(QString& error)
{
    // What is said in other words here, or by the program's end.
    log::leaveOut({u"The X11 connection broke"_s, u"There is no XRandR"_s});
    setHome();
    keepPicturesApart();
    // In a Wayland session the toolkit would otherwise draw where the docks are not; such sessions
    // also ask it to.
    const QByteArray plugin = qgetenv("QT_QPA_PLATFORM");
    if (plugin.isEmpty() || plugin.startsWith("wayland"))
        qputenv("QT_QPA_PLATFORM", "xcb");
    // Try it here, because the toolkit aborts the program if it finds no display.
    auto connection = std::make_unique<Connection>();
    if (connection->isOpen()) {
        // Before the toolkit uses it: what is missing may take down a server that is asked for it.
        return x11::Connection::open({}, error) ? std::move(connection) : nullptr;
    }
    const QString display = qEnvironmentVariable("DISPLAY");
    if (!display.isEmpty())
        error = u"the X display '%1' cannot be opened"_s.arg(display);
    else if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
             qEnvironmentVariable("XDG_SESSION_TYPE") == QLatin1String("wayland"))
        error = u"this Wayland session has no X display, so no window can be previewed: choose an "
                "X11 session when you log in"_s;
    else
        error = u"no X display: DISPLAY is not set. Start Lumbrix in a desktop session"_s;
    return nullptr;
}

} // namespace lumbrix::platform
