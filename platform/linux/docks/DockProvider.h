// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Supports one kind of dock.
#pragma once

#include <functional>

#include "platform/linux/docks/DockItem.h"
#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform
{

/// The listener's part runs on the event thread. States may change on the event thread and on the
/// main thread; `changed` is called each time, without a lock held.
class DockProvider : public x11::WindowListener
{
public:
    /// The display name of this kind of dock.
    virtual const char* name() const = 0;
    /// Starts searching for docks. Main thread, after the windows have been fetched.
    virtual void start() = 0;
    /// One state per running dock of this kind. Any thread.
    virtual std::vector<DockStatePtr> states() const = 0;
    /// The pointer has entered or left one of its docks: positions may be read again. Event thread.
    virtual void pointerCrossed() {}
    /// Reads the dock's own preferences again. Main thread.
    virtual void synchronize() {}

    /// Must be called before start().
    void setChanged(std::function<void()> changed) { m_changed = std::move(changed); }

protected:
    void notifyChanged() const
    {
        if (m_changed)
            m_changed();
    }

private:
    std::function<void()> m_changed;
};

} // namespace lumbrix::platform
