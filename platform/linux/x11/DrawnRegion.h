// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where something was drawn in a window since the last look.
#pragma once

#include <QtGui/QRegion>

#include <xcb/damage.h>
#include <xcb/xcb.h>
#include <xcb/xfixes.h>

#include <atomic>
#include <optional>

namespace lumbrix::platform::x11
{

class Connection;

/// The server sends one event when the first thing is drawn, then none until the next look.
class DrawnRegion
{
public:
    /// `events` belongs to the event thread, `looks` has none. Both outlive this.
    DrawnRegion(const Connection& events, const Connection& looks)
        : m_events(events), m_looks(looks)
    {
    }
    ~DrawnRegion();
    DrawnRegion(const DrawnRegion&) = delete;
    DrawnRegion& operator=(const DrawnRegion&) = delete;

    // Event thread.
    /// What its events name.
    xcb_damage_damage_t watch(xcb_window_t frame);
    /// What was watched; XCB_NONE: nothing.
    xcb_damage_damage_t forget();

    // One thread at a time, in this order.
    /// From here on the next look counts. Waits for nothing, as the next.
    void ask();
    /// Has the answer sent, behind those to what was asked of the server before. Left out, it is
    /// sent when it is waited for.
    void send();
    /// What was drawn until now counts as seen, wherever it was: asked on another connection, in
    /// order with its requests, which knows the DAMAGE extension. Failures are not heard of there.
    /// False when nothing is watched.
    bool clear(xcb_connection_t* connection);
    /// Where something was drawn, from the inside of the frame's border; null when that is not
    /// known.
    std::optional<QRegion> answer();

private:
    const Connection& m_events;
    const Connection& m_looks;
    std::atomic<xcb_damage_damage_t> m_damage = XCB_NONE;
    xcb_xfixes_region_t m_region = XCB_NONE;
    bool m_isAsked = false;
    std::optional<xcb_xfixes_fetch_region_cookie_t> m_sent;
};

} // namespace lumbrix::platform::x11
