// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/WindowPictures.h"

#include "platform/linux/x11/Connection.h"
#include "platform/pictures/PictureMemory.h"

#include <algorithm>
#include <chrono>
#include <iterator>
#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

bool isPreviewable(const TrackedWindow& window)
{
    return window.type != WindowType::Dock && window.type != WindowType::Desktop;
}

} // namespace

WindowPictures::WindowPictures(RunLoop& runLoop, const Connection& events,
                               const Connection& captures, WindowTracker& tracker,
                               const PointSpace& points, bool isCompositorRunning)
    : m_runLoop(runLoop), m_events(events), m_captures(captures), m_tracker(tracker),
      m_tools(events, captures, tracker, points, isCompositorRunning),
      m_watchers(std::make_shared<PictureWatchers>(runLoop)),
      m_worker(runLoop, "x11-pictures", [this](const Thread& self) { work(self); })
{
}

WindowPictures::~WindowPictures() { stop(); }

void WindowPictures::start()
{
    for (const TrackedWindowPtr& window : m_tracker.windows())
        windowAdded(window);
    m_worker.start();
}

void WindowPictures::stop()
{
    {
        const std::lock_guard lock(m_workMutex);
        m_isStopping = true;
    }
    m_workArrived.notify_all();
    m_worker.join();
    for (const auto& [damage, damaged] : m_byDamage)
        damaged.window->forgetDamage();
    m_byDamage.clear();
    m_events.flush();
    const std::lock_guard lock(m_mutex);
    m_windows.clear();
}

WindowPictures::WindowPtr WindowPictures::find(xcb_window_t window) const
{
    const std::lock_guard lock(m_mutex);
    const auto it = m_windows.find(window);
    return it == m_windows.end() ? nullptr : it->second;
}

std::vector<std::pair<xcb_window_t, WindowPictures::WindowPtr>> WindowPictures::all() const
{
    const std::lock_guard lock(m_mutex);
    return {m_windows.begin(), m_windows.end()};
}

void WindowPictures::setPrivacy(std::function<bool(const TrackedWindow&)> isPrivate)
{
    m_tools.policy.setPrivacy(std::move(isPrivate));
}

void WindowPictures::privacyChanged()
{
    for (const auto& [id, window] : all())
        nameAgain(*window, id);
}

void WindowPictures::setAllowed(bool allowed)
{
    // Before anything is dropped, so that a capture under way restores nothing.
    m_tools.policy.setAllowed(allowed);
    if (allowed) {
        privacyChanged();
        return;
    }
    for (const auto& [id, window] : all())
        window->forget();
    m_tools.copier.releaseIdle(); // it has pixels of them
}

QImage WindowPictures::capture(xcb_window_t id, QSize limit, bool isMoving)
{
    const WindowPtr window = find(id);
    if (!window)
        return {};
    noteUse(id, limit);
    const Seconds now = m_runLoop.now();
    QImage image = window->capture(limit, now, isMoving);
    lookBy(now + keepCopies);
    return image;
}

KnownPicture WindowPictures::known(xcb_window_t id, QSize limit)
{
    const WindowPtr window = find(id);
    if (!window)
        return {{}, true};
    noteUse(id, limit);
    const Seconds now = m_runLoop.now();
    if (window->isShelved())
        lookBy(now + CapturedWindow::keepWhole);
    return window->known(limit, now);
}

std::vector<bool> WindowPictures::draw(xcb_connection_t* connection,
                                       const std::vector<PictureDrawing>& drawings)
{
    PictureDrawer drawer(m_tools.copier.sampler(), connection, m_captures.root(), m_drawing);
    std::vector<bool> drawn;
    drawn.reserve(drawings.size());
    for (const auto& [id, surface, tellsNext] : drawings) {
        const WindowPtr window = find(id);
        drawn.push_back(window && window->draw(drawer, surface, tellsNext));
    }
    return drawn;
}

std::unique_ptr<PictureSubscription> WindowPictures::subscribe(xcb_window_t id,
                                                               std::function<void()> changed)
{
    auto subscription = m_watchers->add(id, std::move(changed));
    // Nothing more is heard of what is drawn where something was drawn already.
    if (const WindowPtr window = find(id); window && !window->isUnchanged())
        m_watchers->tell(id);
    return subscription;
}

void WindowPictures::noteUse(xcb_window_t window, QSize limit)
{
    const Seconds now = m_runLoop.now();
    {
        const std::lock_guard lock(m_workMutex);
        if (!limit.isEmpty())
            m_lastLimit = limit;
        if (m_lastPinged.size() > 100) // long gone, most of them
            m_lastPinged.clear();
        Seconds& last =
            m_lastPinged.try_emplace(m_captures.clientOf(window), -pingInterval).first->second;
        if (now - last < pingInterval)
            return;
        last = now;
    }
    m_tracker.ping(window); // shows a stopped client as not responding
}

void WindowPictures::prefetch(const std::vector<xcb_window_t>& windows, bool isRowDue)
{
    {
        // Before what was wanted at another place, which the pointer has left.
        const std::lock_guard lock(m_workMutex);
        std::deque<xcb_window_t> all(windows.begin(), windows.end());
        std::ranges::copy_if(m_toPrefetch, std::back_inserter(all), [&](xcb_window_t before) {
            return std::ranges::find(windows, before) == windows.end();
        });
        if (isRowDue)
            std::erase_if(all, [this](xcb_window_t window) { return isLarge(window); });
        m_toPrefetch.swap(all);
    }
    m_workArrived.notify_all();
}

bool WindowPictures::isLarge(xcb_window_t id) const
{
    const TrackedWindowPtr window = m_tracker.window(id);
    return window &&
           qint64{window->bounds.width()} * window->bounds.height() > CapturedWindow::quickPixels;
}

void WindowPictures::nameAgain(CapturedWindow& window, xcb_window_t id)
{
    window.noteNewPixmap();
    {
        const std::lock_guard lock(m_workMutex);
        m_toName.insert(id);
    }
    m_workArrived.notify_all();
}

void WindowPictures::lookBy(Seconds time)
{
    const std::lock_guard lock(m_workMutex);
    if (m_nextLook && *m_nextLook <= time)
        return;
    m_nextLook = time;
    m_workArrived.notify_all();
}

void WindowPictures::setLook(std::optional<Seconds> time)
{
    if (time)
        m_nextLook = std::min(m_nextLook.value_or(*time), *time);
}

void WindowPictures::work(const Thread& self)
{
    std::unique_lock lock(m_workMutex);
    while (!m_isStopping && !self.isCancelled()) {
        const auto names = std::exchange(m_toName, {});
        const xcb_window_t prefetched = m_toPrefetch.empty() ? XCB_NONE : m_toPrefetch.front();
        if (prefetched)
            m_toPrefetch.pop_front();
        const QSize limit = m_lastLimit;
        const bool isLookDue = m_nextLook && *m_nextLook <= m_runLoop.now();
        if (isLookDue)
            m_nextLook.reset();
        lock.unlock();
        for (const xcb_window_t id : names)
            if (const WindowPtr window = find(id); window && window->followPixmap())
                m_watchers->tell(id);
        if (const WindowPtr window = find(prefetched); window && !limit.isEmpty()) {
            noteUse(prefetched, limit);
            window->capture(limit, m_runLoop.now());
            lookBy(m_runLoop.now() + keepCopies);
        }
        const auto nextLook = isLookDue ? dropUnused() : std::nullopt;
        lock.lock();
        setLook(nextLook);
        const auto awaited = m_nextLook;
        const auto hasWork = [&] {
            return m_isStopping || !m_toName.empty() || !m_toPrefetch.empty() ||
                   m_nextLook != awaited;
        };
        if (awaited) {
            const Seconds left = std::max(0.0, *awaited - m_runLoop.now());
            m_workArrived.wait_for(lock, std::chrono::duration<double>(left), hasWork);
        } else {
            m_workArrived.wait(lock, hasWork);
        }
    }
}

std::optional<Seconds> WindowPictures::dropUnused()
{
    const Seconds now = m_runLoop.now();
    std::optional<Seconds> next;
    for (const auto& [id, window] : all())
        if (const auto due = window->dropUnused(now))
            next = std::min(next.value_or(*due), *due);
    const std::uint64_t copies = m_tools.copies;
    if (std::exchange(m_copiesDropped, copies) != copies) // a film may be playing in a preview
        return std::min(next.value_or(now + keepCopies), now + keepCopies);
    m_tools.copier.releaseIdle();
    giveBackFreedMemory(); // what pictures and their panels needed, until the next
    return next;
}

void WindowPictures::handleEvent(const xcb_generic_event_t& event)
{
    const int type = m_events.extensions().damage.firstEvent + XCB_DAMAGE_NOTIFY;
    if ((event.response_type & 0x7f) != type)
        return;
    const auto& notify = reinterpret_cast<const xcb_damage_notify_event_t&>(event);
    const auto it = m_byDamage.find(notify.damage);
    if (it == m_byDamage.end())
        return;
    it->second.window->noteDrawn();
    m_watchers->tell(it->second.id);
}

void WindowPictures::watchDamage(xcb_window_t id, const WindowPtr& window, xcb_window_t frame)
{
    m_byDamage[window->watchDamage(frame)] = {id, window};
}

void WindowPictures::forgetDamage(CapturedWindow& window)
{
    if (const xcb_damage_damage_t damage = window.forgetDamage())
        m_byDamage.erase(damage);
}

void WindowPictures::windowAdded(const TrackedWindowPtr& window)
{
    if (!isPreviewable(*window))
        return;
    const auto captured = std::make_shared<CapturedWindow>(m_tools, window->id);
    watchDamage(window->id, captured, window->frame);
    {
        const std::lock_guard lock(m_mutex);
        m_windows[window->id] = captured;
    }
    if (window->isMapped)
        nameAgain(*captured, window->id);
}

void WindowPictures::windowChanged(const TrackedWindowPtr& before, const TrackedWindowPtr& after)
{
    const WindowPtr window = find(after->id);
    if (!window) {
        windowAdded(after);
        return;
    }
    if (!isPreviewable(*after)) {
        windowRemoved(after);
        return;
    }
    const bool isReframed = before->frame != after->frame;
    if (isReframed) {
        forgetDamage(*window);
        watchDamage(after->id, window, after->frame);
    }
    const bool isResized = before->frameBounds.size() != after->frameBounds.size();
    const bool isShown = after->isMapped && !before->isMapped;
    if (isReframed || isShown || (isResized && after->isMapped))
        nameAgain(*window, after->id);
    if (before->bounds.size() != after->bounds.size()) {
        window->noteDrawn(); // another part of it is visible
        m_watchers->tell(after->id);
    }
    if (before->isMapped && !after->isMapped) {
        const Seconds now = m_runLoop.now();
        window->noteHidden(now);
        lookBy(now + CapturedWindow::keepPixmap);
    } else if (isShown) {
        window->noteHidden(std::nullopt);
    }
}

void WindowPictures::windowRemoved(const TrackedWindowPtr& last)
{
    WindowPtr window;
    {
        const std::lock_guard lock(m_mutex);
        const auto it = m_windows.find(last->id);
        if (it == m_windows.end())
            return;
        window = std::move(it->second);
        m_windows.erase(it);
    }
    forgetDamage(*window);
}

void WindowPictures::compositorChanged(bool running)
{
    m_tools.isCompositorRunning = running;
    for (const auto& [id, window] : all())
        nameAgain(*window, id);
}

} // namespace lumbrix::platform::x11
