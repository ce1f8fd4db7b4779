// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/WaylandSession.h"

#include "platform/linux/x11/Connection.h"

#include <xcb/randr.h>

#include <algorithm>
#include <string_view>
#include <vector>

namespace lumbrix::platform::x11
{
namespace
{

bool hasExtension(const Connection& connection, std::string_view name)
{
    const auto reply =
        connection.reply(xcb_query_extension_reply,
                         xcb_query_extension(connection.get(),
                                             static_cast<std::uint16_t>(name.size()), name.data()));
    return reply && reply->present;
}

QStringList outputsOf(const Connection& connection)
{
    xcb_connection_t* c = connection.get();
    if (!connection.extensions().randr.atLeast(1, 3))
        return {};
    const auto resources =
        connection.reply(xcb_randr_get_screen_resources_current_reply,
                         xcb_randr_get_screen_resources_current(c, connection.root()));
    if (!resources)
        return {};
    const xcb_randr_output_t* outputs =
        xcb_randr_get_screen_resources_current_outputs(resources.get());
    const int count = xcb_randr_get_screen_resources_current_outputs_length(resources.get());
    std::vector<xcb_randr_get_output_info_cookie_t> questions;
    questions.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        questions.push_back(xcb_randr_get_output_info(c, outputs[i], resources->config_timestamp));
    QStringList names;
    for (const auto& question : questions) {
        if (const auto info = connection.reply(xcb_randr_get_output_info_reply, question))
            names << QString::fromUtf8(
                reinterpret_cast<const char*>(xcb_randr_get_output_info_name(info.get())),
                xcb_randr_get_output_info_name_length(info.get()));
    }
    return names;
}

/// Whether the environment is a Wayland session.
bool saysWayland(const SessionSigns& signs)
{
    return signs.sessionType == QLatin1String("wayland") || !signs.waylandDisplay.isEmpty();
}

} // namespace

bool isOfWaylandSession(const SessionSigns& signs)
{
    if (!saysWayland(signs))
        return false;
    return signs.hasExtension || std::ranges::any_of(signs.outputs, [](const QString& name) {
               return name.startsWith(QLatin1String("XWAYLAND"));
           });
}

bool isOfWaylandSession(const Connection& connection)
{
    SessionSigns signs{qEnvironmentVariable("XDG_SESSION_TYPE"),
                       qEnvironmentVariable("WAYLAND_DISPLAY"),
                       false,
                       {}};
    if (!saysWayland(signs))
        return false; // as on most desktops; the server need not be queried
    signs.hasExtension = hasExtension(connection, "XWAYLAND");
    signs.outputs = outputsOf(connection);
    return isOfWaylandSession(signs);
}

} // namespace lumbrix::platform::x11
