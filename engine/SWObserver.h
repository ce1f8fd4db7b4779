// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// One accessibility observer for one process id.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/Accessibility.h"

namespace lumbrix
{

/// Main thread.
class SWObserver
{
public:
    /// Null when the process cannot be observed.
    static std::unique_ptr<SWObserver> observerWithPid(platform::Accessibility& accessibility,
                                                       std::int32_t pid,
                                                       platform::AXObserver::Callback callback);

    bool isEqualTo(std::int32_t pid) const { return m_pid == pid; }
    platform::AXObserver& observer() const { return *m_observer; }

private:
    SWObserver(std::unique_ptr<platform::AXObserver> observer, std::int32_t pid);

    std::unique_ptr<platform::AXObserver> m_observer;
    const std::int32_t m_pid;
};

} // namespace lumbrix
