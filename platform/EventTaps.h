// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Taps on the stream of input events: they get chosen keys and clicks before the focused program
// does, and can swallow them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace lumbrix::platform
{

/// A virtual key code with ModifierFlag bits. The other ones of the four modifiers must not be
/// held; the states of the locks (caps, num, scroll) do not matter.
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
    /// Main thread. Returns whether to swallow the event. If an adapter cannot wait for the result,
    /// as on a server that delivers events of wanted keys only, every press and release of a wanted
    /// key is swallowed and clicks are passed on. A held key is reported once; its repeats are
    /// swallowed.
    using Callback = std::function<bool(const TapEvent&)>;

    virtual ~EventTap() = default;
    virtual void setEnabled(bool enabled) = 0;
    virtual bool isEnabled() const = 0;
    /// The only keys that the tap gets; replaces the former ones. Initially none.
    virtual void setKeys(const std::vector<TapKey>& keys) = 0;
    /// The wanted keys that another program has grabbed, as far as is known: an adapter may find
    /// out a moment after the tap was enabled. These keys are not reported; they are tried again
    /// the next time the tap is enabled.
    virtual std::vector<TapKey> takenKeys() const = 0;
};

/// Main thread.
class EventTaps
{
public:
    virtual ~EventTaps() = default;
    /// Initially disabled. Never null. The taps must be destroyed before the port.
    [[nodiscard]] virtual std::unique_ptr<EventTap> createTap(TapEvents events,
                                                              EventTap::Callback callback) = 0;
};

} // namespace lumbrix::platform
