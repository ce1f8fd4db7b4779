// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Pings clients, and notices when they answer late.
#pragma once

#include <xcb/xcb.h>

#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/RunLoop.h"
#include "platform/linux/x11/Atoms.h"

namespace lumbrix::platform::x11
{

class Connection;

/// Event thread only. Needs no wake-up while no ping is pending, or all pending ones are already
/// late.
class Pinger
{
public:
    static constexpr Seconds patience = 0.2;

    Pinger(const Connection& connection, const Atoms& atoms);
    /// Pings a window whose client supports the protocol; does nothing while an answer is pending.
    void ping(xcb_window_t window, xcb_timestamp_t time, Seconds now);
    /// The window that has answered; null if the event is not an answer. An answer to another
    /// program's ping also shows that the client is alive.
    std::optional<xcb_window_t> answerIn(const xcb_generic_event_t& event);
    void forget(xcb_window_t window) { m_outstanding.erase(window); }
    /// The windows whose answer has just become late.
    std::vector<xcb_window_t> takeLate(Seconds now);
    std::optional<Seconds> deadline() const;

private:
    struct Outstanding {
        Seconds due;
        bool isLate = false;
    };

    const Connection& m_connection;
    const Atoms& m_atoms;
    std::unordered_map<xcb_window_t, Outstanding> m_outstanding;
};

} // namespace lumbrix::platform::x11
