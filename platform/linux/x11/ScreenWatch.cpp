// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/ScreenWatch.h"

#include "platform/Log.h"
#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/PointSpace.h"
#include "platform/linux/x11/WindowCommands.h"

#include <xcb/randr.h>
#include <xcb/xfixes.h>

#include <algorithm>

namespace lumbrix::platform::x11
{

ScreenWatch::ScreenWatch(const Connection& connection, const Atoms& atoms, WindowCommands& commands,
                         const Listeners& listeners, PointSpace& points)
    : m_connection(connection), m_compositorSelection(atoms[AtomName::CompositingManager]),
      m_commands(commands), m_listeners(listeners), m_points(points)
{
    xcb_connection_t* c = connection.get();
    if (connection.extensions().randr.present)
        xcb_randr_select_input(c, connection.root(),
                               XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE |
                                   XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                                   XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    xcb_xfixes_select_selection_input(c, connection.root(), m_compositorSelection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    const auto owner = connection.reply(xcb_get_selection_owner_reply,
                                        xcb_get_selection_owner(c, m_compositorSelection));
    m_isCompositorRunning = owner && owner->owner != XCB_NONE;
    qCDebug(log::session, "a compositor runs: %s", m_isCompositorRunning ? "yes" : "no");
    m_monitors = fetchMonitors();
    arrange();
}

std::vector<QRect> ScreenWatch::fetchMonitors() const
{
    std::vector<QRect> monitors;
    if (m_connection.extensions().randr.atLeast(1, 5)) {
        const auto reply =
            m_connection.reply(xcb_randr_get_monitors_reply,
                               xcb_randr_get_monitors(m_connection.get(), m_connection.root(), 1));
        if (reply) {
            for (auto it = xcb_randr_get_monitors_monitors_iterator(reply.get()); it.rem;
                 xcb_randr_monitor_info_next(&it)) {
                const QRect rect(it.data->x, it.data->y, it.data->width, it.data->height);
                const bool isKnown = // screens that mirror each other are one
                    std::find(monitors.begin(), monitors.end(), rect) != monitors.end();
                if (!rect.isEmpty() && !isKnown)
                    monitors.insert(it.data->primary ? monitors.begin() : monitors.end(), rect);
            }
        }
    }
    if (monitors.empty()) {
        const auto root = m_connection.reply(
            xcb_get_geometry_reply, xcb_get_geometry(m_connection.get(), m_connection.root()));
        if (root)
            monitors.emplace_back(0, 0, root->width, root->height);
    }
    return monitors;
}

void ScreenWatch::setMainScreenHint(const QRect& dock)
{
    {
        const std::lock_guard lock(m_mutex);
        m_dock = dock;
    }
    if (!arrange())
        return;
    m_commands.post([this](xcb_timestamp_t) {
        m_listeners.notify([](WindowListener& listener) { listener.screensChanged(); });
    });
}

bool ScreenWatch::arrange()
{
    const std::lock_guard lock(m_mutex);
    const auto shared = [this](const QRect& monitor) {
        const QRect common = monitor.intersected(m_dock);
        return static_cast<std::int64_t>(common.width()) * common.height();
    };
    std::vector<QRect> screens = m_monitors;
    const auto main =
        std::max_element(screens.begin(), screens.end(),
                         [&](const QRect& a, const QRect& b) { return shared(a) < shared(b); });
    if (main != screens.end())
        std::rotate(screens.begin(), main, main + 1);
    if (screens.empty() || screens == m_points.screens())
        return false;
    for (const QRect& screen : screens)
        qCDebug(log::session, "a screen of %d × %d pixels at %d, %d", screen.width(),
                screen.height(), screen.x(), screen.y());
    m_points.setScreens(std::move(screens));
    return true;
}

bool ScreenWatch::isScreenEvent(const xcb_generic_event_t& event) const
{
    const int type = event.response_type & 0x7f;
    if (type == XCB_CONFIGURE_NOTIFY)
        return reinterpret_cast<const xcb_configure_notify_event_t&>(event).window ==
               m_connection.root();
    const Extension& randr = m_connection.extensions().randr;
    return randr.present && (type == randr.firstEvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
                             type == randr.firstEvent + XCB_RANDR_NOTIFY);
}

void ScreenWatch::handleEvent(const xcb_generic_event_t& event)
{
    const int type = event.response_type & 0x7f;
    if (type == m_connection.extensions().xfixes.firstEvent + XCB_XFIXES_SELECTION_NOTIFY) {
        const auto& notify = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
        if (notify.selection != m_compositorSelection)
            return;
        const bool isRunning = notify.owner != XCB_NONE;
        m_compositorsBegun += isRunning ? 1 : 0; // one may take over from another
        if (m_isCompositorRunning.exchange(isRunning) != isRunning) {
            qCDebug(log::session, "the compositor has %s", isRunning ? "come" : "gone");
            m_listeners.notify(
                [&](WindowListener& listener) { listener.compositorChanged(isRunning); });
        }
    } else if (isScreenEvent(event)) {
        m_areScreensDirty = true;
    }
}

void ScreenWatch::eventsHandled()
{
    if (!std::exchange(m_areScreensDirty, false))
        return;
    std::vector<QRect> monitors = fetchMonitors();
    {
        const std::lock_guard lock(m_mutex);
        m_monitors = std::move(monitors);
    }
    if (arrange())
        m_listeners.notify([](WindowListener& listener) { listener.screensChanged(); });
}

} // namespace lumbrix::platform::x11
