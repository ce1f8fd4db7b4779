// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Follows the pointer and the mouse buttons, everywhere and even while another program grabs them,
// without a wake-up while the mouse is still.
#pragma once

#include <QtCore/QPoint>

#include <optional>
#include <vector>

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/EventThread.h"
#include "platform/linux/x11/Listeners.h"
#include "platform/linux/x11/PointSpace.h"
#include "platform/linux/x11/PointerTrail.h"

namespace lumbrix::platform::x11
{

/// Event thread, except the constructor.
class PointerWatch final : public EventHandler, public WindowListener
{
public:
    /// Notes on the trail where the pointer comes.
    PointerWatch(RunLoop& runLoop, const Connection& connection, const WindowTracker& tracker,
                 const Listeners& listeners, const PointSpace& points, PointerTrail& trail);

    /// Which keys listeners also get. Typed text is private, so listen only as long as necessary.
    void hearKeys(KeyHearing which);

    void handleEvent(const xcb_generic_event_t& event) override;
    /// One query for all the motion and presses of a batch.
    void eventsHandled() override;
    /// When a pointer that has moved is taken to rest.
    std::optional<Seconds> deadline() const override { return m_restsAt; }

    void windowAdded(const TrackedWindowPtr& window) override;
    void windowChanged(const TrackedWindowPtr& before, const TrackedWindowPtr& after) override;

private:
    struct Key {
        xcb_keycode_t code = 0;
        bool isDown = false;
        xcb_timestamp_t time = 0;
    };

    void selectRaw(bool withKeys) const;
    void fetchKeyboard();
    void tellKeys();
    void tellKey(xcb_keysym_t symbol, const Key& key);
    void followDock(xcb_window_t window);
    void lookAtPointer();
    void tellStop(QPoint place) const;

    RunLoop& m_runLoop;
    const Connection& m_connection;
    const Listeners& m_listeners;
    const PointSpace& m_points;
    PointerTrail& m_trail;
    bool m_hasMoved = true;           ///< the position at the start is reported once
    xcb_timestamp_t m_time = 0;       ///< of the last report
    std::optional<Seconds> m_restsAt; ///< null once that was told
    std::vector<int> m_pressed;
    std::vector<Key> m_keys;
    // Used while keys are watched.
    KeyHearing m_hearing = KeyHearing::None;
    bool m_isShiftDown = false;
    bool m_isModifierDown = false;                      ///< Alt or Super
    Reply<xcb_get_keyboard_mapping_reply_t> m_keyboard; ///< null: must be queried
    Key m_lastPressed;
    std::optional<QPoint> m_position;
    xcb_window_t m_child = XCB_NONE;
};

} // namespace lumbrix::platform::x11
