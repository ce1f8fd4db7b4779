// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/WindowPictures.h"

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/PointSpace.h"
#include "platform/pictures/PictureScaler.h"

#include <xcb/composite.h>

#include <algorithm>
#include <chrono>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace lumbrix::platform::x11
{
namespace
{

bool isPreviewable(const TrackedWindow& window)
{
    return window.type != WindowType::Dock && window.type != WindowType::Desktop;
}

/// Painting takes the unused byte of RGB32 for opacity.
void makeOpaque(QImage& picture)
{
    if (picture.format() != QImage::Format_RGB32)
        return;
    auto* pixel = reinterpret_cast<QRgb*>(picture.bits()); // of 32 bits, so lines end without a gap
    auto left =
        static_cast<std::size_t>(picture.width()) * static_cast<std::size_t>(picture.height());
    // In blocks of a known length, which the compiler gives to wide registers.
    constexpr std::size_t block = 16;
    for (; left >= block; left -= block, pixel += block)
        for (std::size_t i = 0; i < block; ++i)
            pixel[i] |= 0xff000000U;
    for (std::size_t i = 0; i < left; ++i)
        pixel[i] |= 0xff000000U;
}

/// The picture in memory of its own, no larger than the limit.
QImage reduced(const QImage& picture, QSize limit)
{
    const double scale = std::min({1.0, static_cast<double>(limit.width()) / picture.width(),
                                   static_cast<double>(limit.height()) / picture.height()});
    const QSize size(std::max(1, qRound(picture.width() * scale)),
                     std::max(1, qRound(picture.height() * scale)));
    QImage result;
    if (size == picture.size()) {
        result = picture.copy();
        makeOpaque(result);
    } else {
        result = scaledPicture(picture, size);
    }
    result.setDevicePixelRatio(picture.devicePixelRatio());
    return result;
}

} // namespace

struct WindowPictures::Picture {
    explicit Picture(const Connection& connection) : captures(connection) {}
    ~Picture()
    {
        if (pixmap)
            xcb_free_pixmap(captures.get(), pixmap);
        if (redirected)
            xcb_composite_unredirect_window(captures.get(), redirected,
                                            XCB_COMPOSITE_REDIRECT_AUTOMATIC);
        captures.flush();
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    const Connection& captures;
    std::atomic<bool> isDirty = true;     ///< something was drawn since the last copy
    std::atomic<bool> needsNaming = true; ///< the window has, or may have, another pixmap now
    std::atomic<xcb_damage_damage_t> damage = XCB_NONE;

    std::mutex mutex;                   // guards what follows
    xcb_window_t redirected = XCB_NONE; ///< the frame we redirected ourselves
    xcb_pixmap_t pixmap = XCB_NONE;
    QSize pixmapSize;
    int depth = 0;
    QImage reduced; ///< to `limit`
    QSize limit;
    QImage whole;
    Seconds reducedUsed = 0;
    Seconds wholeUsed = 0;

    /// What is known for the limit; null when that is nothing.
    QImage known(QSize wanted)
    {
        if (wanted.isEmpty())
            return whole;
        return limit == wanted ? reduced : QImage();
    }
    /// The window's pixmap, too: of one that is not shown now that is the last picture.
    void forget()
    {
        reduced = QImage();
        whole = QImage();
        if (pixmap)
            xcb_free_pixmap(captures.get(), pixmap);
        pixmap = XCB_NONE;
        captures.flush();
        needsNaming = true;
    }
    void keep(const QImage& image, QSize wanted)
    {
        (wanted.isEmpty() ? whole : reduced) = image;
        if (!wanted.isEmpty())
            limit = wanted;
    }
};

WindowPictures::WindowPictures(RunLoop& runLoop, const Connection& events,
                               const Connection& captures, WindowTracker& tracker,
                               const PointSpace& points, bool isCompositorRunning)
    : m_runLoop(runLoop), m_events(events), m_captures(captures), m_tracker(tracker),
      m_points(points), m_isCompositorRunning(isCompositorRunning), m_copier(captures),
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
    for (const auto& [damage, picture] : m_byDamage)
        xcb_damage_destroy(m_events.get(), damage);
    m_byDamage.clear();
    m_events.flush();
    const std::lock_guard lock(m_mutex);
    m_pictures.clear();
}

WindowPictures::PicturePtr WindowPictures::find(xcb_window_t window) const
{
    const std::lock_guard lock(m_mutex);
    const auto it = m_pictures.find(window);
    return it == m_pictures.end() ? nullptr : it->second;
}

std::vector<std::pair<xcb_window_t, WindowPictures::PicturePtr>> WindowPictures::all() const
{
    const std::lock_guard lock(m_mutex);
    return {m_pictures.begin(), m_pictures.end()};
}

void WindowPictures::setPrivacy(std::function<bool(const TrackedWindow&)> isPrivate)
{
    const std::lock_guard lock(m_mutex);
    m_isPrivate = std::move(isPrivate);
}

bool WindowPictures::isRefused(const TrackedWindow& window) const
{
    std::unique_lock lock(m_mutex);
    const auto isPrivate = m_isPrivate;
    lock.unlock();
    return !m_isAllowed || (isPrivate && isPrivate(window));
}

void WindowPictures::privacyChanged()
{
    for (const auto& [id, picture] : all())
        nameAgain(*picture, id);
}

void WindowPictures::setAllowed(bool allowed)
{
    // Before anything is dropped, so that whatever is under way brings nothing back.
    m_isAllowed = allowed;
    if (allowed) {
        privacyChanged();
        return;
    }
    for (const auto& [id, picture] : all()) {
        const std::lock_guard lock(picture->mutex);
        picture->forget();
    }
    m_copier.releaseIdle(); // they have pixels in them
}

QImage WindowPictures::capture(xcb_window_t window, QSize limit)
{
    const PicturePtr picture = find(window);
    if (!picture)
        return {};
    const std::lock_guard lock(picture->mutex);
    return refresh(*picture, window, limit);
}

std::optional<QImage> WindowPictures::atHand(xcb_window_t window, QSize limit)
{
    const PicturePtr picture = find(window);
    if (!picture)
        return QImage();
    const std::unique_lock lock(picture->mutex, std::try_to_lock);
    if (!lock || picture->needsNaming || picture->isDirty)
        return std::nullopt;
    QImage image = picture->known(limit);
    if (image.isNull())
        return std::nullopt;
    noteUse(*picture, window, limit);
    return image;
}

void WindowPictures::noteUse(Picture& picture, xcb_window_t window, QSize limit)
{
    const Seconds now = m_runLoop.now();
    (limit.isEmpty() ? picture.wholeUsed : picture.reducedUsed) = now;
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

TrackedWindowPtr WindowPictures::keepPixmap(Picture& picture, xcb_window_t id)
{
    // The flag before the window: the snapshot is then no older than what set the flag.
    const bool wasFlagged = picture.needsNaming.exchange(false);
    TrackedWindowPtr window = m_tracker.window(id);
    if (window && isRefused(*window)) {
        picture.forget();
        return nullptr;
    }
    if (window && (redirect(picture, *window) || wasFlagged))
        namePixmap(picture, *window);
    return window;
}

QImage WindowPictures::refresh(Picture& picture, xcb_window_t id, QSize limit)
{
    const TrackedWindowPtr window = keepPixmap(picture, id);
    if (!window)
        return {};
    noteUse(picture, id, limit);
    QImage image = picture.known(limit);
    const bool isStale = picture.needsNaming; // its present pixmap could not be had
    if (!image.isNull() && (isStale || !picture.isDirty))
        return image;
    if (!picture.whole.isNull() && !picture.isDirty) {
        image = reduced(picture.whole, limit);
    } else if (picture.pixmap) {
        QImage copied = copy(picture, *window);
        if (copied.isNull())
            return image;
        // What was kept for another limit shows less than this.
        picture.reduced = QImage();
        picture.whole = QImage();
        if (limit.isEmpty())
            makeOpaque(copied);
        image = limit.isEmpty() ? copied : reduced(copied, limit);
    }
    if (image.isNull())
        return image;
    picture.keep(image, limit);
    dropLater();
    return image;
}

QImage WindowPictures::copy(Picture& picture, const TrackedWindow& before)
{
    // The flag first, then the bounds and the damage, the pixels last: what changes meanwhile is
    // seen or sets the flag again.
    picture.isDirty = false;
    const TrackedWindowPtr latest = m_tracker.window(before.id);
    const TrackedWindow& window = latest ? *latest : before;
    if (const xcb_damage_damage_t damage = picture.damage)
        xcb_damage_subtract(m_captures.get(), damage, XCB_NONE, XCB_NONE);
    const QRect& frame = window.frameBounds;
    const QRect& bounds = window.bounds;
    const QMargins hidden(bounds.x() - frame.x(), bounds.y() - frame.y(),
                          frame.x() + frame.width() - bounds.x() - bounds.width(),
                          frame.y() + frame.height() - bounds.y() - bounds.height());
    const QRect all(QPoint(0, 0), picture.pixmapSize);
    const QRect visible = all.marginsRemoved(hidden);
    QImage image = m_copier.copy(picture.pixmap, visible.isEmpty() ? all : visible, picture.depth);
    m_captures.discardEvents();
    if (image.isNull())
        return image;
    image.setDevicePixelRatio(m_points.pixelsPerPoint());
    ++m_copyCount;
    m_lastCopied = m_runLoop.now();
    return image;
}

void WindowPictures::dropLater()
{
    const std::lock_guard lock(m_workMutex);
    if (!std::exchange(m_isDropDue, true))
        m_workArrived.notify_all();
}

bool WindowPictures::redirect(Picture& picture, const TrackedWindow& window)
{
    const xcb_window_t wanted = m_isCompositorRunning ? XCB_NONE : window.frame;
    if (picture.redirected == wanted)
        return false;
    if (picture.redirected)
        xcb_composite_unredirect_window(m_captures.get(), picture.redirected,
                                        XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    if (wanted)
        xcb_composite_redirect_window(m_captures.get(), wanted, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    picture.redirected = wanted;
    return true;
}

void WindowPictures::namePixmap(Picture& picture, const TrackedWindow& window)
{
    const xcb_pixmap_t pixmap = m_captures.newId();
    xcb_composite_name_window_pixmap(m_captures.get(), window.frame, pixmap);
    const auto geometry =
        m_captures.reply(xcb_get_geometry_reply, xcb_get_geometry(m_captures.get(), pixmap));
    if (!geometry) {
        // Not mapped any more: the pixmap we have is its last picture. Or a compositor that is
        // just coming or that spares full-screen windows: worth another try.
        if (window.isMapped)
            picture.needsNaming = true;
        return;
    }
    if (picture.pixmap)
        xcb_free_pixmap(m_captures.get(), picture.pixmap);
    picture.pixmap = pixmap;
    picture.pixmapSize = QSize(geometry->width, geometry->height);
    picture.depth = geometry->depth;
    picture.isDirty = true;
}

void WindowPictures::prefetch(const std::vector<xcb_window_t>& windows)
{
    {
        const std::lock_guard lock(m_workMutex);
        m_toPrefetch.insert(windows.begin(), windows.end());
    }
    m_workArrived.notify_all();
}

void WindowPictures::nameAgain(Picture& picture, xcb_window_t window)
{
    picture.needsNaming = true;
    {
        const std::lock_guard lock(m_workMutex);
        m_toName.insert(window);
    }
    m_workArrived.notify_all();
}

void WindowPictures::work(const Thread& self)
{
    std::unique_lock lock(m_workMutex);
    while (!m_isStopping && !self.isCancelled()) {
        const auto names = std::exchange(m_toName, {});
        const auto prefetches = std::exchange(m_toPrefetch, {});
        const QSize limit = m_lastLimit;
        m_isDropDue = false;
        lock.unlock();
        for (const xcb_window_t window : names)
            prepareOne(window, std::nullopt);
        for (const xcb_window_t window : prefetches)
            prepareOne(window, limit);
        auto nextDrop = dropUnused();
        lock.lock();
        if (m_isDropDue && !nextDrop) // an image that came just now
            nextDrop = m_runLoop.now() + keepWhole;
        m_isDropDue = nextDrop.has_value();
        const auto hasWork = [&] {
            return m_isStopping || !m_toName.empty() || !m_toPrefetch.empty() ||
                   (m_isDropDue && !nextDrop);
        };
        if (nextDrop) {
            const Seconds left = std::max(0.0, *nextDrop - m_runLoop.now());
            m_workArrived.wait_for(lock, std::chrono::duration<double>(left), hasWork);
        } else {
            m_workArrived.wait(lock, hasWork);
        }
    }
}

void WindowPictures::prepareOne(xcb_window_t id, std::optional<QSize> limit)
{
    const PicturePtr picture = find(id);
    if (!picture)
        return;
    const std::lock_guard lock(picture->mutex);
    if (limit && !limit->isEmpty())
        refresh(*picture, id, *limit);
    else
        keepPixmap(*picture, id);
    m_captures.discardEvents();
}

std::optional<Seconds> WindowPictures::dropUnused()
{
    std::vector<PicturePtr> pictures;
    {
        const std::lock_guard lock(m_mutex);
        for (const auto& [id, picture] : m_pictures)
            pictures.push_back(picture);
    }
    const Seconds now = m_runLoop.now();
    std::optional<Seconds> next;
    const auto drop = [&](QImage& image, Seconds due) {
        if (image.isNull())
            return;
        if (due > now)
            next = std::min(next.value_or(due), due);
        else
            image = QImage();
    };
    for (const PicturePtr& picture : pictures) {
        const std::lock_guard lock(picture->mutex);
        drop(picture->whole, picture->wholeUsed + keepWhole);
        drop(picture->reduced, picture->reducedUsed + keepReduced);
    }
    // While a row is up, what changes is copied every half second.
    const Seconds copiesEnd = m_lastCopied + keepWhole;
    if (copiesEnd <= now)
        m_copier.releaseIdle();
    else
        next = std::min(next.value_or(copiesEnd), copiesEnd);
#ifdef __GLIBC__
    if (!next)
        malloc_trim(0); // what pictures and their panels needed, for the long time until the next
#endif
    return next;
}

void WindowPictures::handleEvent(const xcb_generic_event_t& event)
{
    const int type = m_events.extensions().damage.firstEvent + XCB_DAMAGE_NOTIFY;
    if ((event.response_type & 0x7f) != type)
        return;
    const auto& notify = reinterpret_cast<const xcb_damage_notify_event_t&>(event);
    const auto it = m_byDamage.find(notify.damage);
    if (it != m_byDamage.end())
        it->second->isDirty = true;
}

void WindowPictures::watchDamage(const PicturePtr& picture, xcb_window_t frame)
{
    const xcb_damage_damage_t damage = m_events.newId();
    // One event when the first thing is drawn, then silence until the damage is subtracted.
    xcb_damage_create(m_events.get(), damage, frame, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    picture->damage = damage;
    m_byDamage[damage] = picture;
}

void WindowPictures::forgetDamage(Picture& picture)
{
    const xcb_damage_damage_t damage = picture.damage.exchange(XCB_NONE);
    if (damage == XCB_NONE)
        return;
    xcb_damage_destroy(m_events.get(), damage);
    m_byDamage.erase(damage);
}

void WindowPictures::windowAdded(const TrackedWindowPtr& window)
{
    if (!isPreviewable(*window))
        return;
    const auto picture = std::make_shared<Picture>(m_captures);
    watchDamage(picture, window->frame);
    {
        const std::lock_guard lock(m_mutex);
        m_pictures[window->id] = picture;
    }
    if (window->isMapped)
        nameAgain(*picture, window->id);
}

void WindowPictures::windowChanged(const TrackedWindowPtr& before, const TrackedWindowPtr& after)
{
    const PicturePtr picture = find(after->id);
    if (!picture) {
        windowAdded(after);
        return;
    }
    if (!isPreviewable(*after)) {
        windowRemoved(after);
        return;
    }
    const bool isReframed = before->frame != after->frame;
    if (isReframed) {
        forgetDamage(*picture);
        watchDamage(picture, after->frame);
    }
    const bool isResized = before->frameBounds.size() != after->frameBounds.size();
    const bool isShown = after->isMapped && !before->isMapped;
    if (isReframed || isShown || (isResized && after->isMapped))
        nameAgain(*picture, after->id);
    if (before->bounds.size() != after->bounds.size())
        picture->isDirty = true; // another part of it is visible
}

void WindowPictures::windowRemoved(const TrackedWindowPtr& last)
{
    PicturePtr picture;
    {
        const std::lock_guard lock(m_mutex);
        const auto it = m_pictures.find(last->id);
        if (it == m_pictures.end())
            return;
        picture = std::move(it->second);
        m_pictures.erase(it);
    }
    forgetDamage(*picture);
}

void WindowPictures::compositorChanged(bool running)
{
    m_isCompositorRunning = running;
    for (const auto& [id, picture] : all())
        nameAgain(*picture, id);
}

} // namespace lumbrix::platform::x11
