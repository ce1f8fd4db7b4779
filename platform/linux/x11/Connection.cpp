// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/Connection.h"
#include "platform/StringLiterals.h"

#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/randr.h>
#include <xcb/render.h>
#include <xcb/res.h>
#include <xcb/shape.h>
#include <xcb/shm.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>

#include <array>

namespace lumbrix::platform::x11
{
namespace
{

const xcb_screen_t* screenOf(const xcb_setup_t* setup, int number)
{
    auto it = xcb_setup_roots_iterator(setup);
    for (; it.rem > 1 && number > 0; --number)
        xcb_screen_next(&it);
    return it.data;
}

template <class R> void setVersion(Extension& extension, const Reply<R>& reply)
{
    if (!reply) {
        extension.present = false;
        return;
    }
    extension.majorVersion = reply->major_version;
    extension.minorVersion = reply->minor_version;
}

} // namespace

Connection::Connection(xcb_connection_t* connection, int screenNumber)
    : m_connection(connection), m_screenNumber(screenNumber)
{
}

Connection::~Connection() { xcb_disconnect(m_connection); }

std::unique_ptr<Connection> Connection::open(const std::string& displayName, QString& error)
{
    int number = 0;
    xcb_connection_t* native =
        xcb_connect(displayName.empty() ? nullptr : displayName.c_str(), &number);
    std::unique_ptr<Connection> connection(new Connection(native, number));
    if (connection->isBroken()) {
        const char* variable = std::getenv("DISPLAY");
        const QString name = QString::fromLocal8Bit(displayName.empty() ? (variable ? variable : "")
                                                                        : displayName.c_str());
        error = name.isEmpty() ? u"no X display: DISPLAY is not set"_s
                               : u"the X display '%1' cannot be opened"_s.arg(name);
        return nullptr;
    }
    connection->m_screen = screenOf(xcb_get_setup(native), number);
    error = connection->queryExtensions();
    return error.isEmpty() ? std::move(connection) : nullptr;
}

QString Connection::queryExtensions()
{
    struct Row {
        xcb_extension_t* id;
        Extension* extension;
        const char* requiredName; // null: optional
    };
    const std::array rows{
        Row{&xcb_composite_id, &m_extensions.composite, "Composite"},
        Row{&xcb_damage_id, &m_extensions.damage, "DAMAGE"},
        Row{&xcb_xfixes_id, &m_extensions.xfixes, "XFIXES"},
        Row{&xcb_input_id, &m_extensions.xinput, "XInputExtension"},
        Row{&xcb_shape_id, &m_extensions.shape, nullptr},
        Row{&xcb_shm_id, &m_extensions.shm, nullptr},
        Row{&xcb_randr_id, &m_extensions.randr, nullptr},
        Row{&xcb_res_id, &m_extensions.resource, nullptr},
        Row{&xcb_render_id, &m_extensions.render, nullptr},
    };
    for (const Row& row : rows)
        xcb_prefetch_extension_data(m_connection, row.id);
    for (const Row& row : rows) {
        const xcb_query_extension_reply_t* data = xcb_get_extension_data(m_connection, row.id);
        if (data && data->present) {
            row.extension->present = true;
            row.extension->majorOpcode = data->major_opcode;
            row.extension->firstEvent = data->first_event;
        }
    }
    for (const Row& row : rows) {
        if (row.requiredName && !row.extension->present)
            return u"the X server lacks the extension %1, which Lumbrix needs"_s.arg(
                QString::fromLatin1(row.requiredName));
    }

    // Servers refuse requests of some of these until the client has queried the version.
    xcb_connection_t* c = m_connection;
    const auto composite = xcb_composite_query_version(c, 0, 4);
    const auto damage = xcb_damage_query_version(c, 1, 1);
    const auto xfixes = xcb_xfixes_query_version(c, 5, 0);
    const auto xinput = xcb_input_xi_query_version(c, 2, 2);
    setVersion(m_extensions.composite, reply(xcb_composite_query_version_reply, composite));
    setVersion(m_extensions.damage, reply(xcb_damage_query_version_reply, damage));
    setVersion(m_extensions.xfixes, reply(xcb_xfixes_query_version_reply, xfixes));
    setVersion(m_extensions.xinput, reply(xcb_input_xi_query_version_reply, xinput));
    if (m_extensions.shm.present)
        setVersion(m_extensions.shm, reply(xcb_shm_query_version_reply, xcb_shm_query_version(c)));
    if (m_extensions.randr.present)
        setVersion(m_extensions.randr,
                   reply(xcb_randr_query_version_reply, xcb_randr_query_version(c, 1, 5)));
    if (m_extensions.render.present)
        setVersion(m_extensions.render,
                   reply(xcb_render_query_version_reply, xcb_render_query_version(c, 0, 11)));
    if (m_extensions.resource.present) {
        const auto resource = reply(xcb_res_query_version_reply, xcb_res_query_version(c, 1, 2));
        m_extensions.resource.present = resource != nullptr;
        if (resource) {
            m_extensions.resource.majorVersion = resource->server_major;
            m_extensions.resource.minorVersion = resource->server_minor;
        }
    }
    if (!m_extensions.composite.atLeast(0, 2))
        return u"the X server's Composite extension is too old"_s;
    if (!m_extensions.xinput.atLeast(2, 1))
        return u"the X server's XInput extension is too old"_s;
    if (!m_extensions.damage.present || !m_extensions.xfixes.present)
        return u"the X server's DAMAGE or XFIXES extension does not answer"_s;
    return {};
}

void Connection::discardEvents() const
{
    while (Event event{xcb_poll_for_queued_event(m_connection)}) {
    }
}

} // namespace lumbrix::platform::x11
