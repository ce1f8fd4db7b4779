// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Notices menus, tooltips and other unmanaged windows as they are mapped, moved and unmapped.
#pragma once

#include <set>
#include <vector>

#include "platform/linux/x11/Atoms.h"
#include "platform/linux/x11/EventThread.h"
#include "platform/linux/x11/Listeners.h"

namespace lumbrix::platform::x11
{

class Connection;
class X11WindowTracker;

/// Event thread. Must come after the tracker in the order of handlers, as that knows the frames.
class PopupWatch final : public EventHandler
{
public:
    PopupWatch(const Connection& connection, const Atoms& atoms, const X11WindowTracker& tracker,
               const Listeners& listeners);

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsHandled() override;

private:
    void tellMapped();

    const Connection& m_connection;
    const Atoms& m_atoms;
    const X11WindowTracker& m_tracker;
    const Listeners& m_listeners;
    std::vector<xcb_window_t> m_mapped, m_unmapped;
    std::set<xcb_window_t> m_moved;
};

} // namespace lumbrix::platform::x11
