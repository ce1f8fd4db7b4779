// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/ApplicationGroup.h"

#include <algorithm>

namespace lumbrix::platform
{

namespace
{
// Seconds that windows may take to become iconic before hiding counts as refused.
constexpr double hideGrace = 1.0;
} // namespace

void ApplicationGroup::add(xcb_window_t id, bool skipTaskbar, bool isIconic)
{
    m_windows.emplace_back(id, Window{.skipTaskbar = skipTaskbar, .isIconic = isIconic});
}

void ApplicationGroup::update(xcb_window_t id, bool skipTaskbar, bool isIconic)
{
    for (auto& [known, window] : m_windows) {
        if (known == id) {
            window.skipTaskbar = skipTaskbar;
            window.isIconic = isIconic;
            window.wasIconicSinceHidden = window.wasIconicSinceHidden || isIconic;
        }
    }
}

void ApplicationGroup::remove(xcb_window_t id)
{
    std::erase_if(m_windows, [id](const auto& window) { return window.first == id; });
}

std::vector<xcb_window_t> ApplicationGroup::windows() const
{
    std::vector<xcb_window_t> result;
    for (const auto& [id, window] : m_windows)
        result.push_back(id);
    return result;
}

bool ApplicationGroup::isRegular() const
{
    return std::ranges::any_of(m_windows,
                               [](const auto& window) { return !window.second.skipTaskbar; });
}

void ApplicationGroup::markHidden(const std::vector<xcb_window_t>& windows, double now)
{
    m_hiddenAt = now;
    for (auto& [id, window] : m_windows) {
        window.wasHidden = std::ranges::find(windows, id) != windows.end();
        window.wasIconicSinceHidden = false;
    }
}

bool ApplicationGroup::isHidden(double now) const
{
    bool any = false;
    for (const auto& [id, window] : m_windows) {
        if (!window.wasHidden)
            continue;
        any = true;
        const bool underWay = !window.wasIconicSinceHidden && now - m_hiddenAt < hideGrace;
        if (!window.isIconic && !underWay)
            return false;
    }
    return any;
}

std::vector<xcb_window_t> ApplicationGroup::takeHidden(double now)
{
    const bool wasHidden = isHidden(now);
    std::vector<xcb_window_t> result;
    for (auto& [id, window] : m_windows) {
        if (wasHidden && window.wasHidden)
            result.push_back(id);
        window.wasHidden = false;
    }
    return result;
}

} // namespace lumbrix::platform
