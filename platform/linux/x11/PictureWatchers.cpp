// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/PictureWatchers.h"

#include <utility>
#include <vector>

namespace lumbrix::platform::x11
{

struct PictureWatchers::Watcher {
    std::function<void()> changed; ///< main thread; null once the subscription is gone
    bool isTold = false;           ///< and not called yet; guarded by the list
};

class PictureWatchers::Subscription final : public PictureSubscription
{
public:
    Subscription(std::shared_ptr<PictureWatchers> list, xcb_window_t window,
                 std::shared_ptr<Watcher> watcher)
        : m_list(std::move(list)), m_window(window), m_watcher(std::move(watcher))
    {
    }
    ~Subscription() override
    {
        m_watcher->changed = nullptr; // what is told already comes too late
        const std::lock_guard lock(m_list->m_mutex);
        const auto [begin, end] = m_list->m_watchers.equal_range(m_window);
        for (auto it = begin; it != end; ++it) {
            if (it->second == m_watcher) {
                m_list->m_watchers.erase(it);
                return;
            }
        }
    }

private:
    const std::shared_ptr<PictureWatchers> m_list;
    const xcb_window_t m_window;
    const std::shared_ptr<Watcher> m_watcher;
};

std::unique_ptr<PictureSubscription> PictureWatchers::add(xcb_window_t window,
                                                          std::function<void()> changed)
{
    const auto watcher = std::make_shared<Watcher>();
    watcher->changed = std::move(changed);
    const std::lock_guard lock(m_mutex);
    m_watchers.emplace(window, watcher);
    return std::make_unique<Subscription>(shared_from_this(), window, watcher);
}

void PictureWatchers::tell(xcb_window_t window)
{
    {
        const std::lock_guard lock(m_mutex);
        const bool isCallDue = !m_told.empty();
        const auto [begin, end] = m_watchers.equal_range(window);
        for (auto it = begin; it != end; ++it)
            if (!std::exchange(it->second->isTold, true))
                m_told.push_back(it->second);
        if (isCallDue || m_told.empty())
            return;
    }
    // One call for all that are drawn on in the same moment, as films are.
    m_runLoop.performOnMainThread([list = shared_from_this()] { list->callTold(); }, false);
}

void PictureWatchers::callTold()
{
    std::vector<std::shared_ptr<Watcher>> told;
    {
        const std::lock_guard lock(m_mutex);
        told.swap(m_told);
        for (const std::shared_ptr<Watcher>& watcher : told)
            watcher->isTold = false;
    }
    for (const std::shared_ptr<Watcher>& watcher : told) {
        // A copy, as the call may end the subscription.
        if (const auto changed = watcher->changed)
            changed();
    }
}

} // namespace lumbrix::platform::x11
