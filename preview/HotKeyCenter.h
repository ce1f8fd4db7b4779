// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Hot keys as the previews use them. What registers them with the system is the hot-key centre.
#pragma once

#include <QtCore/QString>

#include <cstdint>
#include <functional>
#include <memory>

namespace lumbrix
{

/// A virtual key code with modifier bits (command 0x100, shift 0x200, option 0x800,
/// control 0x1000); −1 means none.
struct SGKeyCombo {
    std::int64_t keyCode = -1;
    std::int64_t modifiers = -1;

    bool operator==(const SGKeyCombo&) const = default;
};

struct SGHotKey {
    QString identifier;
    SGKeyCombo keyCombo;
    std::function<void()> action; ///< runs on the main thread
};

/// Main thread.
class HotKeyCenter
{
public:
    virtual ~HotKeyCenter() = default;
    virtual void registerHotKey(const std::shared_ptr<SGHotKey>& hotKey) = 0;
    /// Harmless for null and for a key that is not registered.
    virtual void unregisterHotKey(const std::shared_ptr<SGHotKey>& hotKey) = 0;
    /// Turns on the taps that are needed in the present state, or all that are not needed off.
    virtual void toggleEventTap(bool on) = 0;
};

} // namespace lumbrix
