// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Follows the pointer and the mouse buttons, wherever they are and whatever program grabs them,
// without a wake-up while the mouse is still.
#pragma once

#include <QtCore/QPoint>

#include <optional>
#include <vector>

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/EventThread.h"
#include "platform/linux/x11/Listeners.h"

namespace lumbrix::platform::x11
{

/// Event thread, except the constructor.
class PointerWatch final : public EventHandler, public WindowListener
{
public:
    PointerWatch(const Connection& connection, const WindowTracker& tracker,
                 const Listeners& listeners);

    /// Which keys listeners get, too. Nobody needs to hear what people write, so only as
    /// long as it has to be.
    void hearKeys(KeyHearing which);

    void handleEvent(const xcb_generic_event_t& event) override;
    /// One question for all the motion and presses of a batch.
    void eventsHandled() override;

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

    const Connection& m_connection;
    const Listeners& m_listeners;
    bool m_hasMoved = true; ///< the position at the start is reported once
    std::vector<int> m_pressed;
    std::vector<Key> m_keys;
    // While keys are heard.
    KeyHearing m_hearing = KeyHearing::None;
    bool m_isShiftDown = false;
    bool m_isModifierDown = false;                      ///< Alt or Super
    Reply<xcb_get_keyboard_mapping_reply_t> m_keyboard; ///< null: to be asked for
    Key m_lastPressed;
    std::optional<QPoint> m_position;
    xcb_window_t m_child = XCB_NONE;
};

} // namespace lumbrix::platform::x11
