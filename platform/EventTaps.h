// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Taps on the stream of input events: they see chosen keys and clicks before the focused program
// does, and may keep them from it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace lumbrix::platform
{

/// A virtual key code with ModifierFlag bits. No other of the four modifiers is held with it; the
/// states of the locks (caps, numbers, scrolling) do not matter.
struct TapKey {
    std::int64_t keyCode = -1;
    std::uint32_t flags = 0;
    /// The focused program gets the key as well, whatever the callback answers. Its release is not
    /// reported, and its repeats are.
    bool isPassedOn = false;

    bool operator==(const TapKey&) const = default;
};

struct TapEvent {
    enum class Type { KeyDown, KeyUp, LeftMouseDown, LeftMouseUp };
    Type type = Type::KeyDown;
    TapKey key{}; ///< of key events
};

enum class TapEvents { Keys, KeysAndClicks };

/// Dropping it disables it. Main thread.
class EventTap
{
public:
    /// Main thread. The answer says whether to swallow the event. Where an adapter cannot wait for
    /// it, as on a server that hands out events of wanted keys only, every press and release of a
    /// wanted key is swallowed and clicks are passed on. A held key is pressed once: its repeats
    /// are swallowed and not reported.
    using Callback = std::function<bool(const TapEvent&)>;

    virtual ~EventTap() = default;
    virtual void setEnabled(bool enabled) = 0;
    virtual bool isEnabled() const = 0;
    /// The only keys that it sees, in place of those before; none at first.
    virtual void setKeys(const std::vector<TapKey>& keys) = 0;
    /// Those of the keys that another program has taken for itself, as far as that is known yet:
    /// an adapter may find out a moment after the tap was enabled. They are not reported, and tried
    /// again the next time the tap is enabled.
    virtual std::vector<TapKey> takenKeys() const = 0;
};

/// Main thread.
class EventTaps
{
public:
    virtual ~EventTaps() = default;
    /// Disabled at first. Never null. The taps go before the port does.
    [[nodiscard]] virtual std::unique_ptr<EventTap> createTap(TapEvents events,
                                                              EventTap::Callback callback) = 0;
};

} // namespace lumbrix::platform
