// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Hands notifications to the observers of a process.
#pragma once

#include <memory>
#include <optional>
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
    /// To all that asked for it, whatever the process. For what only docks tell: the one that is
    /// observed may have ended, and nobody would learn of the end of its selection.
    void notifyAll(const ElementRef& element, const QString& notification);
    /// Nothing is delivered any more.
    void close() { m_observers.clear(); }

private:
    class Observer;
    void tell(std::optional<std::int32_t> pid, const ElementRef& element,
              const QString& notification);

    std::vector<Observer*> m_observers;
};

} // namespace lumbrix::platform
