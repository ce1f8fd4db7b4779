// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How far a switcher has been moved, by the keys that were pressed.
#pragma once

#include <xcb/xcb.h>

#include <optional>

namespace lumbrix::platform
{

/// Tab moves it on, and with Shift back. Anything else may move it nobody knows where, and from
/// then on it tells nothing rather than something wrong.
class SwitcherSteps
{
public:
    /// The key that holds a switcher open goes down, or a switcher has closed.
    void restart() { *this = {}; }
    void pressed(xcb_keysym_t key, bool withShift);
    /// It was moved otherwise, or how it was opened is not known.
    void lose() { m_isLost = true; }

    /// From the window that was active, those backwards against those forwards; null: not known.
    std::optional<int> count() const { return m_isLost ? std::nullopt : m_count; }

private:
    std::optional<int> m_count;
    bool m_isLost = false;
};

} // namespace lumbrix::platform
