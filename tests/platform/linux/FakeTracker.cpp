// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/platform/linux/FakeTracker.h"

#include <algorithm>

namespace lumbrix::test
{

void FakeTracker::add(Window window)
{
    window.frame = window.id + 1;
    window.isMapped = true;
    const auto added = std::make_shared<const Window>(std::move(window));
    m_windows.insert(m_windows.begin(), added);
    notify(&Listener::windowAdded, added);
}

FakeTracker::WindowPtr FakeTracker::window(xcb_window_t id) const
{
    const auto it = std::ranges::find(m_windows, id, &Window::id);
    ++m_told;
    return it == m_windows.end() ? nullptr : *it;
}

std::vector<FakeTracker::WindowPtr> FakeTracker::windows(std::span<const xcb_window_t> ids) const
{
    std::vector<WindowPtr> found;
    std::ranges::copy_if(m_windows, std::back_inserter(found), [ids](const WindowPtr& window) {
        return std::ranges::find(ids, window->id) != ids.end();
    });
    m_told += static_cast<int>(found.size());
    return found;
}

void FakeTracker::change(xcb_window_t id, const std::function<void(Window&)>& how)
{
    const auto it = std::ranges::find(m_windows, id, &Window::id);
    if (it == m_windows.end())
        return;
    const WindowPtr before = *it;
    Window changed = *before;
    how(changed);
    const WindowPtr after = *it = std::make_shared<const Window>(std::move(changed));
    notify(&Listener::windowChanged, before, after);
}

void FakeTracker::remove(xcb_window_t id)
{
    const WindowPtr last = window(id);
    std::erase(m_windows, last);
    if (last)
        notify(&Listener::windowRemoved, last);
}

void FakeTracker::movePointer(QPoint point, std::optional<QPoint> stop)
{
    m_pointer = point;
    const auto it = std::ranges::find_if(m_windows, [&](const WindowPtr& window) {
        return !window->isIconic && window->bounds.contains(point);
    });
    const xcb_window_t child = it == m_windows.end() ? xcb_window_t{XCB_NONE} : (*it)->frame;
    notify(&Listener::pointerMoved, point, child);
    if (stop)
        notify(&Listener::pointerStops, *stop);
}

void FakeTracker::activate(xcb_window_t id)
{
    ++m_activations;
    const WindowPtr raised = window(id);
    if (!raised)
        return;
    deiconify(id);
    if (raised->desktop >= 0 && raised->desktop != m_desktop)
        setCurrentDesktop(raised->desktop);
    const WindowPtr current = window(id);
    std::erase(m_windows, current);
    m_windows.insert(m_windows.begin(), current);
    setActive(id);
}

void FakeTracker::iconify(xcb_window_t id)
{
    if (m_iconifies)
        change(id, [](Window& window) { window.isIconic = true; });
}

} // namespace lumbrix::test
