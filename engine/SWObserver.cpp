// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/SWObserver.h"

#include <utility>

namespace lumbrix
{

std::unique_ptr<SWObserver> SWObserver::observerWithPid(platform::Accessibility& accessibility,
                                                        std::int32_t pid,
                                                        platform::AXObserver::Callback callback)
{
    auto observer = accessibility.createObserver(pid, std::move(callback));
    if (!observer)
        return nullptr;
    return std::unique_ptr<SWObserver>(new SWObserver(std::move(observer), pid));
}

SWObserver::SWObserver(std::unique_ptr<platform::AXObserver> observer, std::int32_t pid)
    : m_observer(std::move(observer)), m_pid(pid)
{
}

} // namespace lumbrix
