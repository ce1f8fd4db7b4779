// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Live pictures of the managed windows, copied only when something was drawn.
#pragma once

#include <QtGui/QImage>

#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/linux/x11/EventThread.h"
#include "platform/linux/x11/ImageCopier.h"
#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform::x11
{

class Connection;
class PointSpace;

/// Every previewable window (docks and desktops are not) has a named pixmap from the time it is
/// first seen mapped: it outlives the window's unmapping, so a minimised window and one of another
/// desktop keep their last picture. Where no compositor redirects windows, their frames are
/// redirected here.
///
/// Memory: pixels are copied into a few pieces of memory that are used again and again, and reduced
/// at once to what was asked for. A reduced image is kept on this side for keepReduced after it
/// was last asked for, a whole one for keepWhole; the worker wakes up for that, and not at all
/// when there is no image. Nothing is lost: the next capture copies the pixmap again.
///
/// A client whose windows are asked for is pinged at times, so that a stopped one shows as such.
///
/// `events` belongs to the event thread; `captures` is this object's own, without an event thread.
class WindowPictures final : public EventHandler, public WindowListener
{
public:
    static constexpr Seconds keepReduced = 30.0;
    static constexpr Seconds keepWhole = 2.0; ///< zoomed views ask every half second
    static constexpr Seconds pingInterval = 1.0;

    WindowPictures(RunLoop& runLoop, const Connection& events, const Connection& captures,
                   WindowTracker& tracker, const PointSpace& points, bool isCompositorRunning);
    ~WindowPictures() override;

    /// Of which windows no picture is ever made or kept; asked on any thread. Any thread; those
    /// that there are already go by privacyChanged().
    void setPrivacy(std::function<bool(const TrackedWindow&)> isPrivate);
    /// Another set of windows is private now: has the worker drop their pictures. Any thread.
    void privacyChanged();
    /// Off drops every picture there is, and has none made or kept from then on. Any thread.
    void setAllowed(bool allowed);

    /// Takes in the windows there are and starts the worker. Before the event thread starts.
    void start();
    /// Ends the worker. After the event thread has ended; no capture may run any more.
    void stop();

    /// The picture of the window's visible bounds, reduced to what just fits into the limit
    /// (pixels) unless that is empty. The last one when it is not shown now; null when there is
    /// none, or no such window. While nothing was drawn, the same image again, without a request.
    /// Any thread; a slow window delays only those who ask for the same one.
    QImage capture(xcb_window_t window, QSize limit = {});
    /// What capture() would give, if that is known without copying and nobody is just copying it.
    /// Any thread; never waits.
    std::optional<QImage> atHand(xcb_window_t window, QSize limit);
    /// Refreshes the pictures of these windows soon, on the worker, for the limit that was last
    /// asked for. Any thread.
    void prefetch(const std::vector<xcb_window_t>& windows);
    /// How often pixels were copied so far. Any thread.
    std::uint64_t copyCount() const { return m_copyCount; }

    void handleEvent(const xcb_generic_event_t& event) override;
    void windowAdded(const TrackedWindowPtr& window) override;
    void windowChanged(const TrackedWindowPtr& before, const TrackedWindowPtr& after) override;
    void windowRemoved(const TrackedWindowPtr& last) override;
    void compositorChanged(bool running) override;

private:
    struct Picture;
    using PicturePtr = std::shared_ptr<Picture>;

    PicturePtr find(xcb_window_t window) const;
    // Event thread.
    void watchDamage(const PicturePtr& picture, xcb_window_t frame);
    void forgetDamage(Picture& picture);
    /// Has the worker take the pixmap that the window has now.
    void nameAgain(Picture& picture, xcb_window_t window);

    std::vector<std::pair<xcb_window_t, PicturePtr>> all() const;
    bool isRefused(const TrackedWindow& window) const;

    // With the picture's lock held.
    QImage refresh(Picture& picture, xcb_window_t window, QSize limit);
    QImage copy(Picture& picture, const TrackedWindow& window);
    void noteUse(Picture& picture, xcb_window_t window, QSize limit);
    void dropLater();
    /// Sees to it that the pixmap the window has now is named; null when the window is gone.
    TrackedWindowPtr keepPixmap(Picture& picture, xcb_window_t window);
    /// True when it changed something, so that the window may have another pixmap.
    bool redirect(Picture& picture, const TrackedWindow& window);
    void namePixmap(Picture& picture, const TrackedWindow& window);

    void work(const Thread& self);
    /// With a limit, also copies the picture.
    void prepareOne(xcb_window_t window, std::optional<QSize> limit);
    /// Drops images nobody asked for lately; the time of the next one to drop, if any.
    std::optional<Seconds> dropUnused();

    RunLoop& m_runLoop;
    const Connection& m_events;
    const Connection& m_captures;
    WindowTracker& m_tracker;
    const PointSpace& m_points; ///< how many pixels a picture has per point
    std::atomic<bool> m_isCompositorRunning;
    std::atomic<std::uint64_t> m_copyCount = 0;
    std::atomic<Seconds> m_lastCopied = -keepWhole;
    std::atomic<bool> m_isAllowed = true;
    ImageCopier m_copier;
    std::unordered_map<xcb_damage_damage_t, PicturePtr> m_byDamage; ///< event thread

    mutable std::mutex m_mutex;
    std::unordered_map<xcb_window_t, PicturePtr> m_pictures; // guarded by m_mutex
    /// Guarded by m_mutex. Empty: none is.
    std::function<bool(const TrackedWindow&)> m_isPrivate;

    std::mutex m_workMutex;
    std::condition_variable m_workArrived;
    std::unordered_set<xcb_window_t> m_toName;               // guarded by m_workMutex
    std::unordered_set<xcb_window_t> m_toPrefetch;           // guarded by m_workMutex
    std::unordered_map<std::uint32_t, Seconds> m_lastPinged; ///< by client; guarded by m_workMutex
    QSize m_lastLimit;                                       // guarded by m_workMutex
    bool m_isStopping = false;                               // guarded by m_workMutex
    /// Guarded by m_workMutex. The worker has a time to look for images to drop, or must set one.
    bool m_isDropDue = false;
    JoinableThread m_worker;
};

} // namespace lumbrix::platform::x11
