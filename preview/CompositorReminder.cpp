// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/CompositorReminder.h"

#include <array>

#include "platform/RunLoop.h"
#include "platform/WindowServer.h"

namespace lumbrix
{
namespace
{

/// Intervals between reminders: short at first, so that the user sees no delay; longer later, for a
/// busy machine.
constexpr std::array<platform::Seconds, 5> reminderDelays{0.05, 0.15, 0.3, 0.5, 1.0};

} // namespace

void CompositorReminder::start(std::uintptr_t toolkitWindow)
{
    m_run = std::make_shared<const bool>(true);
    remindAfter(0, toolkitWindow);
}

void CompositorReminder::remindAfter(std::size_t reminder, std::uintptr_t toolkitWindow)
{
    if (reminder == reminderDelays.size())
        return;
    m_ports.runLoop.performAfterDelay(this, reminderDelays[reminder],
                                      [this, reminder, toolkitWindow, run = std::weak_ptr(m_run)] {
                                          if (run.expired())
                                              return;
                                          m_ports.windowServer.remindCompositor(toolkitWindow);
                                          remindAfter(reminder + 1, toolkitWindow);
                                      });
}

} // namespace lumbrix
