// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/Desktop.h"

namespace lumbrix
{

/// Reminds the compositor, a few times in two seconds, of a window that came back onto the screen.
/// Main thread.
class CompositorReminder
{
public:
    /// The ports outlive it.
    explicit CompositorReminder(const platform::Desktop& ports) : m_ports(ports) {}

    /// From the beginning, if it runs already. The window (the toolkit's) outlives the reminders.
    void start(std::uintptr_t toolkitWindow);
    void stop() { m_run.reset(); }

private:
    void remindAfter(std::size_t reminder, std::uintptr_t toolkitWindow);

    const platform::Desktop& m_ports;
    std::shared_ptr<const bool> m_run; ///< null while stopped, another one after each start
};

} // namespace lumbrix
