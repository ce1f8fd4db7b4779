// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The pointer and the modifier keys, queried on demand.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/InputState.h"
#include "platform/linux/x11/EventThread.h"

namespace lumbrix::platform::x11
{

class Connection;
class PointSpace;
class PointerTrail;

/// Each query is one round trip on the calling thread. If the server is gone it returns the origin,
/// no button, no key.
class X11InputState final : public InputState, public EventHandler
{
public:
    /// `events` belongs to the event thread, which has not started yet.
    X11InputState(const RunLoop& runLoop, const Connection& requests, const Connection& events,
                  const PointSpace& points, const PointerTrail& trail);

    QPointF mouseLocation() override;
    std::vector<MousePlace> mouseTrail() override; ///< no round trip
    QPoint pointer() const;                        ///< root pixels
    std::uint32_t pressedMouseButtons() override;
    std::uint32_t leftMouseDowns() override { return m_leftMouseDowns; } ///< no round trip
    std::uint32_t modifierFlags() override;

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsHandled() override;

private:
    std::uint32_t pointerMask() const;
    void readModifierMapping();

    QPointF locationOf(QPoint pixel) const;

    const RunLoop& m_runLoop;
    const Connection& m_requests;
    const Connection& m_events;
    const PointSpace& m_points;
    const PointerTrail& m_trail;
    bool m_isMappingDirty = true; ///< event thread
    std::atomic<std::uint32_t> m_leftMouseDowns = 0;
    std::atomic<std::uint32_t> m_optionMask;
    std::atomic<std::uint32_t> m_commandMask;
};

} // namespace lumbrix::platform::x11
