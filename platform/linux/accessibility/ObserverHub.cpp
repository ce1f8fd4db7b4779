// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/accessibility/ObserverHub.h"

#include <algorithm>
#include <map>

namespace lumbrix::platform
{

class ObserverHub::Observer final : public AXObserver
{
public:
    Observer(std::shared_ptr<ObserverHub> hub, std::int32_t pid, Callback callback)
        : m_hub(std::move(hub)), m_pid(pid),
          m_callback(std::make_shared<Callback>(std::move(callback)))
    {
    }
    ~Observer() override { std::erase(m_hub->m_observers, this); }

    AXError addNotification(const ElementRef& element, const QString& notification,
                            NotificationContext* context) override
    {
        if (!element)
            return AXError::IllegalArgument;
        m_contexts.insert_or_assign(notification, context);
        return AXError::Success;
    }

    void addToRunLoop() override
    {
        if (std::ranges::find(m_hub->m_observers, this) == m_hub->m_observers.end())
            m_hub->m_observers.push_back(this);
    }

    void notify(std::optional<std::int32_t> pid, const ElementRef& element,
                const QString& notification)
    {
        const auto wanted = m_contexts.find(notification);
        if (pid.value_or(m_pid) == m_pid && wanted != m_contexts.end()) {
            // The callback may destroy this observer, and with it the function being executed.
            const auto callback = m_callback;
            (*callback)(*this, element, notification, wanted->second);
        }
    }

private:
    const std::shared_ptr<ObserverHub> m_hub;
    const std::int32_t m_pid;
    const std::shared_ptr<const Callback> m_callback;
    std::map<QString, NotificationContext*> m_contexts;
};

std::unique_ptr<AXObserver> ObserverHub::createObserver(std::int32_t pid,
                                                        AXObserver::Callback callback)
{
    return std::make_unique<Observer>(shared_from_this(), pid, std::move(callback));
}

void ObserverHub::notify(std::int32_t pid, const ElementRef& element, const QString& notification)
{
    tell(pid, element, notification);
}

void ObserverHub::notifyAll(const ElementRef& element, const QString& notification)
{
    tell(std::nullopt, element, notification);
}

void ObserverHub::tell(std::optional<std::int32_t> pid, const ElementRef& element,
                       const QString& notification)
{
    const std::vector<Observer*> observers = m_observers;
    for (Observer* observer : observers)
        if (std::ranges::find(m_observers, observer) != m_observers.end())
            observer->notify(pid, element, notification);
}

} // namespace lumbrix::platform
