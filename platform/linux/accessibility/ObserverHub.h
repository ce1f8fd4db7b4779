// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Passes notifications to the observers of a process.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/Accessibility.h"

namespace lumbrix::platform
{

/// Main thread. Observers keep it alive, so an observer may outlive the adapter.
class ObserverHub : public std::enable_shared_from_this<ObserverHub>
{
public:
    std::unique_ptr<AXObserver> createObserver(std::int32_t pid, AXObserver::Callback callback);
    void notify(std::int32_t pid, const ElementRef& element, const QString& notification);
    /// Passes the notification to all observers registered for it, whatever their process. For
    /// notifications that only docks send: the observed dock may have ended, and the end of its
    /// selection would otherwise not be reported.
    void notifyAll(const ElementRef& element, const QString& notification);
    /// From now on nothing is delivered.
    void close() { m_observers.clear(); }

private:
    class Observer;
    void tell(std::optional<std::int32_t> pid, const ElementRef& element,
              const QString& notification);

    std::vector<Observer*> m_observers;
};

} // namespace lumbrix::platform
