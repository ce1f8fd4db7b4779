// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/PictureLoader.h"

#include <algorithm>
#include <deque>
#include <mutex>
#include <optional>

#include "engine/LXHandler.h"
#include "platform/Desktop.h"

namespace lumbrix
{
namespace
{

/// Longer than copying a large window takes, and too short to be seen as a delay.
constexpr platform::Seconds longestHold = 0.1;

/// While one waits for the pixels, another scales; more would only get in each other's way.
constexpr int mostThreads = 2;

} // namespace

/// What is to be captured, and how many threads are at it. Threads may outlive the loader.
class PictureLoader::Queue
{
public:
    struct Task {
        SWElementPtr window;
        QSize limit;
        std::function<void(const QImage&)> done; ///< on that thread; may be null
    };

    /// Whether another thread should be started.
    bool add(Task task)
    {
        const std::lock_guard lock(m_mutex);
        m_tasks.push_back(std::move(task));
        if (m_threads == mostThreads)
            return false;
        ++m_threads;
        return true;
    }

    void work()
    {
        while (const auto task = next()) {
            const QImage picture = task->window->grabWindow(task->limit);
            if (task->done)
                task->done(picture);
        }
    }

private:
    std::optional<Task> next()
    {
        const std::lock_guard lock(m_mutex);
        if (m_tasks.empty()) {
            --m_threads;
            return std::nullopt;
        }
        Task task = std::move(m_tasks.front());
        m_tasks.pop_front();
        return task;
    }

    std::mutex m_mutex;
    std::deque<Task> m_tasks; // guarded by m_mutex
    int m_threads = 0;        // guarded by m_mutex
};

PictureLoader::PictureLoader(LXHandler& handler)
    : m_handler(handler), m_queue(std::make_shared<Queue>())
{
}

PictureLoader::~PictureLoader() { platform::desktop().runLoop.cancelPreviousPerformRequests(this); }

void PictureLoader::loadMissing()
{
    m_waiting = 0;
    ++m_round;
    for (const ScreenyViewPtr& preview : m_handler.screenyViews()) {
        if (preview->elementRef() && preview->image().isNull())
            load(preview);
    }
    // The server does one thing after the other. A panel that it shows while it has pictures to
    // copy keeps it, and the compositor, from copying the others.
    for (const ScreenyViewPtr& preview : m_handler.screenyViews())
        preview->setHeld(true);
}

void PictureLoader::showWhenComplete()
{
    if (m_waiting == 0) {
        letGo();
        return;
    }
    platform::RunLoop& runLoop = platform::desktop().runLoop;
    runLoop.cancelPreviousPerformRequests(this);
    runLoop.performAfterDelay(this, longestHold, [this] { letGo(); });
}

void PictureLoader::letGo()
{
    platform::desktop().runLoop.cancelPreviousPerformRequests(this);
    for (const ScreenyViewPtr& preview : m_handler.screenyViews())
        preview->setHeld(false);
}

void PictureLoader::load(const ScreenyViewPtr& preview)
{
    const SWElementPtr window = preview->elementRef();
    if (window->grabWindowAtHand(preview->pictureLimit())) {
        preview->setCapture(window->screenshot());
        return;
    }
    ++m_waiting;
    // One that is used again on the spot would show nothing, or its former window.
    preview->window()->orderOut();
    platform::RunLoop& runLoop = platform::desktop().runLoop;
    captureLater(window, preview->pictureLimit(),
                 [this, window, weak = std::weak_ptr(preview), round = m_round,
                  alive = std::weak_ptr(m_alive), &runLoop](const QImage& picture) {
                     runLoop.performOnMainThread(
                         [this, window, picture, weak, round, alive] {
                             if (alive.expired())
                                 return;
                             // It may be the preview of something else by now, or have something
                             // better to show.
                             const ScreenyViewPtr shown = weak.lock();
                             if (shown && shown->elementRef() == window && shown->image().isNull())
                                 shown->setCapture(picture);
                             if (round == m_round && --m_waiting == 0)
                                 letGo();
                         },
                         false);
                 });
}

void PictureLoader::loadUnseen(const ScreenyViewPtr& preview)
{
    const SWElementPtr window = preview->elementRef();
    platform::RunLoop& runLoop = platform::desktop().runLoop;
    captureLater(window, preview->pictureLimit(),
                 [window, weak = std::weak_ptr(preview), &runLoop](const QImage& picture) {
                     runLoop.performOnMainThread(
                         [window, picture, weak] {
                             const ScreenyViewPtr shown = weak.lock();
                             if (shown && shown->elementRef() == window)
                                 shown->setImage(picture);
                         },
                         false);
                 });
}

void PictureLoader::updateScreenshot(const ScreenyView& preview)
{
    const SWElementPtr& window = preview.elementRef();
    if (!window->grabWindowAtHand(preview.pictureLimit()))
        captureLater(window, preview.pictureLimit(), nullptr);
}

void PictureLoader::captureLater(const SWElementPtr& window, QSize limit,
                                 std::function<void(const QImage&)> done)
{
    if (m_queue->add({window, limit, std::move(done)}))
        platform::desktop().runLoop.detachThread(
            "capture", [queue = m_queue](const platform::Thread&) { queue->work(); });
}

} // namespace lumbrix
