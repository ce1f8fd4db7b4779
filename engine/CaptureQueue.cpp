// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/CaptureQueue.h"

#include <algorithm>
#include <utility>

#include "platform/Log.h"

namespace lumbrix
{
namespace
{

/// While one waits for the pixels, another scales; more would only get in each other's way. Of a
/// film the pixels are so few that handing them from one to the other takes longer.
constexpr int maxThreads = 2;
constexpr int maxThreadsForFilms = 1;
/// What is captured in quick succession is shown together: a compositor draws all anew whenever a
/// panel was painted.
constexpr platform::Seconds maxKeptBack = 0.01;

} // namespace

void CaptureQueue::capture(const SWElementPtr& window, Wish wish, Done done)
{
    {
        const std::lock_guard lock(m_mutex);
        const auto waiting = std::ranges::find(m_tasks, window, &Task::window);
        if (waiting != m_tasks.end()) {
            waiting->wish = wish;
            waiting->done.push_back(std::move(done));
            return;
        }
        if (m_tasks.empty() && m_underWay.empty())
            m_handedOut = m_runLoop.now();
        m_tasks.push_back({window, wish, {std::move(done)}, {}});
        if (m_threads >= (wish.isMoving ? maxThreadsForFilms : maxThreads))
            return;
        ++m_threads;
    }
    m_runLoop.detachThread(
        "capture", [queue = shared_from_this()](const platform::Thread&) { queue->work(); });
}

bool CaptureQueue::holds(const SWElementPtr& window) const
{
    const std::lock_guard lock(m_mutex);
    return isUnderWay(window) || std::ranges::find(m_tasks, window, &Task::window) != m_tasks.end();
}

void CaptureQueue::work()
{
    while (auto task = next()) {
        Captured& captured = task->captured;
        const Wish& wish = task->wish;
        captured.picture = wish.isMoving && !wish.isWhole
                               ? task->window->grabMovingWindow(wish.limit)
                               : task->window->grabWindow(wish.isWhole ? QSize() : wish.limit);
        captured.reduced = captured.picture.image;
        if (captured.reduced.isNull())
            qCDebug(log::pictures, "there is no picture of window %#x", task->window->wid());
        // Here, as the main thread would have to do it otherwise.
        if (wish.isWhole && !captured.reduced.isNull())
            captured.reduced = task->window->grabWindow(wish.limit).image;
        finish(std::move(*task));
    }
}

std::optional<CaptureQueue::Task> CaptureQueue::next()
{
    const std::lock_guard lock(m_mutex);
    // A window that is being captured is left to the thread that does it: any other would wait for
    // that too.
    const auto free = std::ranges::find_if(
        m_tasks, [this](const Task& task) { return !isUnderWay(task.window); });
    if (free == m_tasks.end()) {
        --m_threads;
        return std::nullopt;
    }
    Task task = std::move(*free);
    m_tasks.erase(free);
    m_underWay.push_back(task.window);
    return task;
}

void CaptureQueue::finish(Task task)
{
    {
        const std::lock_guard lock(m_mutex);
        std::erase(m_underWay, task.window);
        m_finished.push_back(std::move(task));
        const platform::Seconds now = m_runLoop.now();
        const bool isLast = m_tasks.empty() && m_underWay.empty();
        if (!isLast && now - m_handedOut < maxKeptBack)
            return;
        m_handedOut = now;
    }
    m_runLoop.performOnMainThread([queue = shared_from_this()] { queue->deliver(); }, false);
}

void CaptureQueue::deliver()
{
    std::vector<Task> finished;
    {
        const std::lock_guard lock(m_mutex);
        finished.swap(m_finished);
    }
    for (const Task& task : finished)
        for (const Done& done : task.done)
            done(task.captured);
}

bool CaptureQueue::isUnderWay(const SWElementPtr& window) const
{
    return std::ranges::find(m_underWay, window) != m_underWay.end();
}

} // namespace lumbrix
