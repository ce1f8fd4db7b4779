// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/PictureLoader.h"

#include <algorithm>
#include <deque>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/Log.h"
#include "platform/StringLiterals.h"
#include "platform/Workspace.h"
#include "preview/NamedImage.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{
namespace
{

/// Longer than copying a large window takes, and too short to be seen as a delay.
constexpr platform::Seconds maxHold = 0.1;

/// While one waits for the pixels, another scales; more would only get in each other's way.
constexpr int maxThreads = 2;

} // namespace

/// What is to be captured, and how many threads are at it. Threads may outlive the loader.
class PictureLoader::Queue
{
public:
    /// On the thread that captured.
    using Done = std::function<void(const WindowPicture&)>;

    /// Whether another thread should be started. A window that waits already is captured once, as
    /// it was asked for last.
    bool add(const SWElementPtr& window, QSize limit, Done done)
    {
        const std::lock_guard lock(m_mutex);
        const auto waiting = std::find_if(m_tasks.begin(), m_tasks.end(),
                                          [&](const Task& task) { return task.window == window; });
        if (waiting != m_tasks.end()) {
            waiting->limit = limit;
            waiting->done.push_back(std::move(done));
            return false;
        }
        m_tasks.push_back({window, limit, {std::move(done)}});
        if (m_threads == maxThreads)
            return false;
        ++m_threads;
        return true;
    }

    /// Whether the window waits, or is being captured.
    bool holds(const SWElementPtr& window) const
    {
        const std::lock_guard lock(m_mutex);
        return isUnderWay(window) ||
               std::any_of(m_tasks.begin(), m_tasks.end(),
                           [&](const Task& task) { return task.window == window; });
    }

    void work()
    {
        while (const auto task = next()) {
            const WindowPicture picture = task->window->grabWindow(task->limit);
            if (picture.image.isNull())
                qCDebug(log::pictures, "there is no picture of window %#x", task->window->wid());
            for (const Done& done : task->done)
                done(picture);
            const std::lock_guard lock(m_mutex);
            std::erase(m_underWay, task->window);
        }
    }

private:
    struct Task {
        SWElementPtr window;
        QSize limit;
        std::vector<Done> done;
    };

    std::optional<Task> next()
    {
        const std::lock_guard lock(m_mutex);
        // A window that is being captured is left to the thread that does it: any other would wait
        // for that too.
        const auto free = std::find_if(m_tasks.begin(), m_tasks.end(), [this](const Task& task) {
            return !isUnderWay(task.window);
        });
        if (free == m_tasks.end()) {
            --m_threads;
            return std::nullopt;
        }
        Task task = std::move(*free);
        m_tasks.erase(free);
        m_underWay.push_back(task.window);
        return task;
    }

    bool isUnderWay(const SWElementPtr& window) const
    {
        return std::find(m_underWay.begin(), m_underWay.end(), window) != m_underWay.end();
    }

    mutable std::mutex m_mutex;           // guards what follows
    std::deque<Task> m_tasks;             ///< one for a window
    std::vector<SWElementPtr> m_underWay; ///< of these, one for a thread at most
    int m_threads = 0;
};

PictureLoader::PictureLoader(const platform::Desktop& ports,
                             const std::vector<ScreenyViewPtr>& previews)
    : m_ports(ports), m_previews(previews), m_queue(std::make_shared<Queue>())
{
}

PictureLoader::~PictureLoader() { m_ports.runLoop.cancelPreviousPerformRequests(this); }

void PictureLoader::loadMissing()
{
    m_waiting = 0;
    ++m_round;
    for (const ScreenyViewPtr& preview : m_previews)
        if (preview->elementRef() && preview->image().isNull())
            load(preview);
    // The server does one thing after the other. A panel that it shows while it has pictures to
    // copy keeps it, and the compositor, from copying the others.
    for (const ScreenyViewPtr& preview : m_previews)
        preview->setHeld(true);
}

void PictureLoader::showWhenComplete()
{
    if (m_waiting == 0) {
        letGo();
        return;
    }
    platform::RunLoop& runLoop = m_ports.runLoop;
    runLoop.cancelPreviousPerformRequests(this);
    runLoop.performAfterDelay(this, maxHold, [this] {
        qCDebug(log::pictures, "the row shows with %d pictures missing", m_waiting);
        letGo();
    });
}

void PictureLoader::letGo()
{
    m_ports.runLoop.cancelPreviousPerformRequests(this);
    for (const ScreenyViewPtr& preview : m_previews)
        preview->setHeld(false);
}

void PictureLoader::load(const ScreenyViewPtr& preview)
{
    const SWElementPtr window = preview->elementRef();
    if (const auto picture = window->grabWindowAtHand(preview->pictureLimit())) {
        window->setScreenshot(*picture);
        preview->setCapture(picture->image);
        loadIcon(*preview);
        return;
    }
    ++m_waiting;
    // One that is used again on the spot would show nothing, or its former window.
    preview->window()->orderOut();
    const auto show = [this, round = m_round](ScreenyView* shown, const QImage& picture) {
        // It may have something better to show by now.
        if (shown && shown->image().isNull()) {
            shown->setCapture(picture);
            loadIcon(*shown);
        }
        this->arrived(round);
    };
    captureLater(*preview, m_guard.ifAlive(show));
}

void PictureLoader::arrived(int round)
{
    if (round == m_round && --m_waiting == 0)
        letGo();
}

void PictureLoader::loadIcon(ScreenyView& preview)
{
    if (!preview.elementRef() || !preview.image().isNull() || preview.hasIcon())
        return;
    const QString bundle = preview.elementRef()->bundle();
    auto& previews = m_iconWanted[bundle];
    previews.push_back(preview.weak_from_this());
    if (previews.size() > 1)
        return; // it is being read
    ++m_waiting;
    const int side = preview.iconSide();
    const auto read = m_guard.ifAlive([this, bundle, side, round = m_round](const QImage& icon) {
        setIcons(bundle,
                 icon.isNull() ? namedPixmap(u"anyApp"_s, {side, side}, 1).toImage() : icon);
        arrived(round);
    });
    // On a thread, as it reads files.
    m_ports.runLoop.detachThread(
        "window-icon", [bundle, side, read, &ports = m_ports](const platform::Thread&) {
            const QImage icon = ports.workspace.applicationIcon(bundle, side);
            ports.runLoop.performOnMainThread([read, icon] { read(icon); }, false);
        });
}

void PictureLoader::setIcons(const QString& bundle, const QImage& icon)
{
    const auto previews = m_iconWanted.extract(bundle);
    if (!previews)
        return;
    for (const std::weak_ptr<ScreenyView>& preview : previews.mapped()) {
        // It may show something else by now.
        const ScreenyViewPtr shown = preview.lock();
        if (shown && shown->elementRef() && shown->elementRef()->bundle() == bundle)
            shown->setIcon(icon);
    }
}

void PictureLoader::loadUnseen(const ScreenyViewPtr& preview)
{
    captureLater(*preview, [](ScreenyView* shown, const QImage& picture) {
        if (shown)
            shown->setImage(picture);
    });
}

void PictureLoader::updateScreenshot(ScreenyView& preview)
{
    const SWElementPtr& window = preview.elementRef();
    // A slow server is not asked again before it has answered: it would fall further behind with
    // every update, and bring pictures that are long out of date.
    if (m_queue->holds(window))
        return;
    if (const auto picture = window->grabWindowAtHand(preview.pictureLimit()))
        window->setScreenshot(*picture);
    else
        captureLater(preview, [](ScreenyView*, const QImage&) {});
}

void PictureLoader::captureLater(ScreenyView& preview, Arrived arrived)
{
    platform::RunLoop& runLoop = m_ports.runLoop;
    const SWElementPtr window = preview.elementRef();
    const auto done = [window, weak = preview.weak_from_this(), arrived = std::move(arrived),
                       &runLoop](const WindowPicture& picture) {
        runLoop.performOnMainThread(
            [window, weak, arrived, picture] {
                // The panel may be gone, or be the preview of something else by now; the picture
                // is then nobody's.
                const ScreenyViewPtr alive = weak.lock();
                const bool isShown = alive && alive->elementRef() == window;
                if (isShown)
                    window->setScreenshot(picture);
                arrived(isShown ? alive.get() : nullptr, picture.image);
            },
            false);
    };
    if (m_queue->add(window, preview.pictureLimit(), done))
        runLoop.detachThread("capture",
                             [queue = m_queue](const platform::Thread&) { queue->work(); });
}

} // namespace lumbrix
