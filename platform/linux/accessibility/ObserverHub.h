// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Hands notifications to the observers of a process.
#pragma once

#include <memory>
#include <vector>

#include "platform/Accessibility.h"

namespace lumbrix::platform
{

/// Main thread. Observers keep it alive, so that one which outlives the adapter ends in peace.
class ObserverHub : public std::enable_shared_from_this<ObserverHub>
{
public:
    std::unique_ptr<AXObserver> createObserver(std::int32_t pid, AXObserver::Callback callback);
    void notify(std::int32_t pid, const ElementRef& element, const QString& notification);
    /// Nothing is delivered any more.
    void close() { m_observers.clear(); }

private:
    class Observer;
    std::vector<Observer*> m_observers;
};

} // namespace lumbrix::platform
