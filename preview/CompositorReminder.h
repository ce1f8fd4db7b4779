// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/Desktop.h"

namespace lumbrix
{

/// Reminds the compositor, several times in two seconds, of a window that was put back on the
/// screen. Main thread.
class CompositorReminder
{
public:
    /// The ports must outlive it.
    explicit CompositorReminder(const platform::Desktop& ports) : m_ports(ports) {}

    /// Restarts if already running. The toolkit's window must outlive the reminders.
    void start(std::uintptr_t toolkitWindow);
    void stop() { m_run.reset(); }

private:
    void remindAfter(std::size_t reminder, std::uintptr_t toolkitWindow);

    const platform::Desktop& m_ports;
    std::shared_ptr<const bool> m_run; ///< null while stopped, a new one after each start
};

} // namespace lumbrix
