// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/switcher/RecentWindows.h"

#include <algorithm>

#include "platform/linux/applications/ApplicationIdentity.h"

namespace lumbrix::platform
{

namespace
{

constexpr std::size_t maximumRecent = 200;

} // namespace

RecentWindows::RecentWindows(const x11::WindowTracker& tracker)
    : m_tracker(tracker), m_recent{tracker.activeWindow()}
{
}

// A new window without the focus is the next one to switch to.
void RecentWindows::added(xcb_window_t window)
{
    if (std::ranges::count(m_recent, window) == 0)
        m_recent.insert(m_recent.begin() + 1, window);
}

void RecentWindows::activated(xcb_window_t window)
{
    std::erase(m_recent, window);
    m_recent.insert(m_recent.begin(), window);
    m_recent.resize(std::min(m_recent.size(), maximumRecent));
}

template <class Test> std::vector<x11::TrackedWindowPtr> RecentWindows::windowsHere(Test test) const
{
    std::vector<x11::TrackedWindowPtr> windows = m_tracker.windows();
    const int desktop = m_tracker.currentDesktop();
    std::erase_if(windows, [&](const x11::TrackedWindowPtr& window) {
        const bool isHere = window->desktop < 0 || window->desktop == desktop;
        return !isHere || !isApplicationWindow(*window) || !test(*window);
    });
    std::ranges::stable_sort(windows, {}, [this](const x11::TrackedWindowPtr& window) {
        return std::ranges::find(m_recent, window->id) - m_recent.begin();
    });
    return windows;
}

RecentWindows::Windows RecentWindows::ring() const
{
    Windows result;
    for (const auto& window :
         windowsHere([](const x11::TrackedWindow& window) { return !window.skipTaskbar; }))
        result.push_back(window->id);
    return result;
}

RecentWindows::Windows RecentWindows::ringOfKWin() const
{
    const auto windows = windowsHere([](const x11::TrackedWindow& window) {
        return !window.skipSwitcher &&
               (window.type == x11::WindowType::Normal || window.type == x11::WindowType::Dialog);
    });
    Windows result;
    for (const x11::TrackedWindowPtr& window : windows) {
        const auto dialog = std::ranges::find_if(windows, [&](const x11::TrackedWindowPtr& other) {
            return other->isModal && other->transientFor == window->id;
        });
        const xcb_window_t listed = dialog == windows.end() ? window->id : (*dialog)->id;
        if (std::ranges::count(result, listed) == 0)
            result.push_back(listed);
    }
    return result;
}

} // namespace lumbrix::platform
