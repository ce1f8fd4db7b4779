// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How far a switcher's selection has moved, from the keys that were pressed.
#pragma once

#include <xcb/xcb.h>

#include <optional>

namespace lumbrix::platform
{

/// Tab moves forwards, with Shift backwards. After any other key the position is unknown, and
/// nothing is reported rather than something wrong.
class SwitcherSteps
{
public:
    /// The key that holds a switcher open goes down, or a switcher has closed.
    void restart() { *this = {}; }
    void pressed(xcb_keysym_t key, bool withShift);
    /// It was moved in another way, or it is not known how it was opened.
    void lose() { m_isLost = true; }

    /// Steps from the window that was active, forwards minus backwards; null: not known.
    std::optional<int> count() const { return m_isLost ? std::nullopt : m_count; }

private:
    std::optional<int> m_count;
    bool m_isLost = false;
};

} // namespace lumbrix::platform
