// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The list of listeners for the windows of the display.
#pragma once

#include <vector>

#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform::x11
{

/// Added to before the event thread starts; called on it.
class Listeners
{
public:
    void add(WindowListener* listener) { m_listeners.push_back(listener); }
    template <class Call> void notify(const Call& call) const
    {
        for (WindowListener* listener : m_listeners)
            call(*listener);
    }

private:
    std::vector<WindowListener*> m_listeners;
};

} // namespace lumbrix::platform::x11
