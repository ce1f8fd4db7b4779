// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/DrawnRegion.h"

#include "platform/linux/x11/Connection.h"

#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

/// A copy for each piece costs more than what lies between them.
constexpr int maxPieces = 6;

} // namespace

DrawnRegion::~DrawnRegion()
{
    if (m_sent)
        answer(); // or it would never be taken out of the queue
    if (m_region)
        xcb_xfixes_destroy_region(m_looks.get(), m_region);
}

xcb_damage_damage_t DrawnRegion::watch(xcb_window_t frame)
{
    const xcb_damage_damage_t damage = m_events.newId();
    xcb_damage_create(m_events.get(), damage, frame, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    m_damage = damage;
    return damage;
}

xcb_damage_damage_t DrawnRegion::forget()
{
    const xcb_damage_damage_t damage = m_damage.exchange(XCB_NONE);
    if (damage)
        xcb_damage_destroy(m_events.get(), damage);
    return damage;
}

void DrawnRegion::ask()
{
    if (m_sent)
        answer();
    m_isAsked = false;
    const xcb_damage_damage_t damage = m_damage;
    if (!damage)
        return;
    xcb_connection_t* c = m_looks.get();
    if (!m_region) {
        m_region = m_looks.newId();
        xcb_xfixes_create_region(c, m_region, 0, nullptr);
    } else {
        // Where the damage is gone by now, what was drawn last time must not be told again.
        xcb_xfixes_set_region(c, m_region, 0, nullptr);
    }
    xcb_damage_subtract(c, damage, XCB_NONE, m_region);
    m_isAsked = true;
}

void DrawnRegion::send()
{
    if (std::exchange(m_isAsked, false))
        m_sent = xcb_xfixes_fetch_region(m_looks.get(), m_region);
}

bool DrawnRegion::clear(xcb_connection_t* connection)
{
    const xcb_damage_damage_t damage = m_damage;
    if (!damage)
        return false;
    const auto cleared = xcb_damage_subtract_checked(connection, damage, XCB_NONE, XCB_NONE);
    xcb_discard_reply(connection, cleared.sequence);
    return true;
}

std::optional<QRegion> DrawnRegion::answer()
{
    send();
    const auto sent = std::exchange(m_sent, std::nullopt);
    if (!sent)
        return std::nullopt;
    const auto reply = m_looks.reply(xcb_xfixes_fetch_region_reply, *sent);
    if (!reply)
        return std::nullopt;
    const auto rect = [](const xcb_rectangle_t& r) { return QRect(r.x, r.y, r.width, r.height); };
    const int count = xcb_xfixes_fetch_region_rectangles_length(reply.get());
    if (count > maxPieces)
        return QRegion(rect(reply->extents));
    QRegion region;
    for (int i = 0; i < count; ++i)
        region += rect(xcb_xfixes_fetch_region_rectangles(reply.get())[i]);
    return region;
}

} // namespace lumbrix::platform::x11
