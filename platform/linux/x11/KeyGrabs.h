// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Grabs key combinations from all other programs while they are wanted. The server releases the
// grabs when the connection ends for any reason.
#pragma once

#include <xcb/xcb.h>

#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/EventTaps.h"
#include "platform/linux/x11/EventThread.h"
#include "platform/linux/x11/Keymap.h"
#include "platform/linux/x11/ModifierMasks.h"

namespace lumbrix::platform::x11
{

class Connection;

/// Nothing runs while no wanted key is pressed. Only we get a press and its release, even if the
/// key is no longer wanted by then.
class KeyGrabs final : public EventHandler
{
public:
    /// Event thread.
    using Report = std::function<void(const TapEvent&)>;

    /// `events` belongs to the event thread, which is woken through `wake`.
    KeyGrabs(const Connection& events, const Connection& requests, const WakeFd& wake)
        : m_events(events), m_requests(requests), m_wake(wake)
    {
    }

    /// Before the thread starts.
    void setReport(Report report) { m_report = std::move(report); }
    /// Replaces the wanted keys; takes effect a moment later. Any thread.
    void setWanted(std::vector<TapKey> keys);
    /// The wanted keys that could not be grabbed, mostly because another program has them. Any
    /// thread.
    std::vector<TapKey> refused() const;

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsHandled() override;

private:
    /// One combination, with every state of the locks.
    struct Grab {
        TapKey key;
        xcb_keycode_t keycode = 0;
        std::uint32_t modifiers = 0;
        std::uint32_t locks = 0; ///< bits that may be set or not

        bool operator==(const Grab&) const = default;
    };
    struct Keyboard {
        Keymap::Keycodes keycodes;
        ModifierMasks masks;
    };

    std::vector<Grab> grabsFor(const std::vector<TapKey>& keys);
    bool readKeyboard();
    void watchGrabs() const;
    std::uint32_t modifiersFor(std::uint32_t flags) const;
    void take(const std::vector<Grab>& grabs, std::vector<TapKey>& refused);
    void giveBack(const Grab& grab) const;
    void pressed(const xcb_key_press_event_t& event);
    void passOn(const xcb_key_press_event_t& event) const;
    void released(const xcb_key_release_event_t& event);
    void tellRelease();
    void finishRelease();

    const Connection& m_events;
    const Connection& m_requests;
    const WakeFd& m_wake;
    Report m_report;

    mutable std::mutex m_mutex;
    std::vector<TapKey> m_wanted;  // guarded by m_mutex
    std::vector<TapKey> m_refused; // guarded by m_mutex
    bool m_isWantedDirty = false;  // guarded by m_mutex

    // Event thread.
    std::vector<Grab> m_held;
    std::map<xcb_keycode_t, TapKey> m_down;
    /// The last event of a key, if that was a release; kept even after it was reported, as the
    /// press of a repeat may arrive in the next pass.
    std::optional<xcb_key_release_event_t> m_release;
    std::optional<Keyboard> m_keyboard; ///< read when keys are wanted
    bool m_isMappingDirty = false;
};

} // namespace lumbrix::platform::x11
