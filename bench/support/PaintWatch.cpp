// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/PaintWatch.h"

#include <QtCore/QtGlobal>

#include <cstdlib>
#include <memory>
#include <poll.h>
#include <xcb/damage.h>

namespace lumbrix::bench
{

PaintWatch::PaintWatch(const QByteArray& display) : m_lastEvent(Clock::now())
{
    m_connection = xcb_connect(display.constData(), nullptr);
    const auto* damage = xcb_get_extension_data(m_connection, &xcb_damage_id);
    if (xcb_connection_has_error(m_connection) || !damage || !damage->present)
        qFatal("no X server with the DAMAGE extension at %s", display.constData());
    m_damageEvent = damage->first_event;
    std::free(xcb_damage_query_version_reply(
        m_connection, xcb_damage_query_version(m_connection, 1, 1), nullptr));
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection, root, XCB_CW_EVENT_MASK, &mask);
    auto* tree = xcb_query_tree_reply(m_connection, xcb_query_tree(m_connection, root), nullptr);
    for (int i = 0; i < xcb_query_tree_children_length(tree); ++i) {
        const xcb_window_t window = xcb_query_tree_children(tree)[i];
        auto* seen = xcb_get_window_attributes_reply(
            m_connection, xcb_get_window_attributes(m_connection, window), nullptr);
        if (seen && seen->override_redirect && seen->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT)
            watch(window);
        std::free(seen);
    }
    std::free(tree);
    xcb_flush(m_connection);
    m_thread = std::thread([this] { run(); });
}

PaintWatch::~PaintWatch()
{
    m_isStopping = true;
    m_thread.join();
    xcb_disconnect(m_connection);
}

void PaintWatch::clear()
{
    const std::lock_guard lock(m_mutex);
    m_events.clear();
    m_lastEvent = Clock::now();
}

std::vector<PaintWatch::Event> PaintWatch::events() const
{
    const std::lock_guard lock(m_mutex);
    return m_events;
}

std::set<xcb_window_t> PaintWatch::paintedWindows() const
{
    std::set<xcb_window_t> painted;
    for (const Event& event : events())
        if (event.kind == Event::Kind::Painted)
            painted.insert(event.window);
    return painted;
}

Clock::time_point PaintWatch::lastEvent() const
{
    const std::lock_guard lock(m_mutex);
    return m_lastEvent;
}

void PaintWatch::run()
{
    while (!m_isStopping && !xcb_connection_has_error(m_connection)) {
        pollfd waited{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        poll(&waited, 1, 50);
        while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
            handle(*event);
            std::free(event);
        }
        xcb_flush(m_connection);
    }
}

void PaintWatch::watch(xcb_window_t window)
{
    if (!m_watched.insert(window).second)
        return;
    // Every request that draws is an event of its own: nothing has to be subtracted, and no two
    // are taken for one.
    xcb_damage_create(m_connection, xcb_generate_id(m_connection), window,
                      XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
}

void PaintWatch::handle(const xcb_generic_event_t& event)
{
    const auto add = [this](Event::Kind kind, xcb_window_t window) {
        const std::lock_guard lock(m_mutex);
        m_lastEvent = Clock::now();
        m_events.push_back({kind, m_lastEvent, window});
    };
    const int type = event.response_type & 0x7f;
    if (type == m_damageEvent + XCB_DAMAGE_NOTIFY) {
        // A single pixel is a panel's reminder to a compositor that may have missed it.
        const auto& damage = reinterpret_cast<const xcb_damage_notify_event_t&>(event);
        if (damage.area.width > 1 || damage.area.height > 1)
            add(Event::Kind::Painted, damage.drawable);
    } else if (type == XCB_CREATE_NOTIFY) {
        const auto& created = reinterpret_cast<const xcb_create_notify_event_t&>(event);
        if (created.override_redirect)
            watch(created.window);
    } else if (type == XCB_MAP_NOTIFY) {
        const auto& mapped = reinterpret_cast<const xcb_map_notify_event_t&>(event);
        if (!mapped.override_redirect)
            return;
        watch(mapped.window);
        add(Event::Kind::Mapped, mapped.window);
    } else if (type == XCB_UNMAP_NOTIFY) {
        const auto& unmapped = reinterpret_cast<const xcb_unmap_notify_event_t&>(event);
        if (m_watched.contains(unmapped.window))
            add(Event::Kind::Unmapped, unmapped.window);
    } else if (type == XCB_DESTROY_NOTIFY) {
        m_watched.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
    }
}

} // namespace lumbrix::bench
