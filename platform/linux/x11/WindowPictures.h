// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Live pictures of the managed windows, copied only where something was drawn.
#pragma once

#include <QtGui/QImage>

#include <xcb/damage.h>
#include <xcb/xcb.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/WindowServer.h"
#include "platform/linux/x11/CapturedWindow.h"
#include "platform/linux/x11/EventThread.h"
#include "platform/linux/x11/PictureDrawer.h"
#include "platform/linux/x11/PictureWatchers.h"
#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform::x11
{

class Connection;
class PointSpace;

/// Every previewable window (docks and desktops are not) has a named pixmap from the time it is
/// first seen mapped: it outlives the window's unmapping, so a minimised window and one of another
/// desktop keep their last picture. Soon after that a large one is replaced by a picture of bounded
/// size. Where no compositor redirects windows, their frames are redirected here.
///
/// Memory: pixels are copied into a few pieces of memory that are used again and again, and reduced
/// at once to what was asked for. Reduced and whole images are kept on this side for a while after
/// they were last asked for; the worker wakes up for that, and not at all when there is no image.
/// Nothing is lost: the next capture copies the pixmap again.
///
/// A client whose windows are asked for is pinged at times, so that a stopped one shows as such.
///
/// `events` belongs to the event thread; `captures` is this object's own, without an event thread.
class WindowPictures final : public EventHandler, public WindowListener
{
public:
    static constexpr Seconds keepCopies = 2.0; ///< memory that was copied into
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
    /// Of a window that moves it may be made of some of its pixels only, and is not current then.
    /// Any thread; a slow window delays only those who ask for the same one.
    QImage capture(xcb_window_t window, QSize limit = {}, bool isMoving = false);
    /// What is known without copying: perhaps an old picture, made to fit. Any thread; never waits.
    KnownPicture known(xcb_window_t window, QSize limit);
    /// Has the server draw them by requests on this connection, which is another than those here.
    /// Which of them are drawn. Main thread.
    std::vector<bool> draw(xcb_connection_t* connection,
                           const std::vector<PictureDrawing>& drawings);
    /// Calls `changed` when something was drawn since the last capture; soon, if it was already.
    /// Main thread.
    std::unique_ptr<PictureSubscription> subscribe(xcb_window_t window,
                                                   std::function<void()> changed);
    /// Refreshes the pictures of these windows soon and in this order, on the worker, for the limit
    /// that was last asked for. Where their row is due, only what does not keep the server from
    /// showing it. Any thread.
    void prefetch(const std::vector<xcb_window_t>& windows, bool isRowDue = false);
    /// How often pictures were copied so far, in whole or in part, and how much. Any thread.
    std::uint64_t copyCount() const { return m_tools.copies; }
    std::uint64_t copiedPixels() const { return m_tools.copiedPixels; }

    void handleEvent(const xcb_generic_event_t& event) override;
    void windowAdded(const TrackedWindowPtr& window) override;
    void windowChanged(const TrackedWindowPtr& before, const TrackedWindowPtr& after) override;
    void windowRemoved(const TrackedWindowPtr& last) override;
    void compositorChanged(bool running) override;

private:
    using WindowPtr = std::shared_ptr<CapturedWindow>;
    struct Damaged {
        xcb_window_t id;
        WindowPtr window;
    };

    WindowPtr find(xcb_window_t window) const;
    std::vector<std::pair<xcb_window_t, WindowPtr>> all() const;
    // Event thread.
    void watchDamage(xcb_window_t id, const WindowPtr& window, xcb_window_t frame);
    void forgetDamage(CapturedWindow& window);
    /// Has the worker take the pixmap that the window has now.
    void nameAgain(CapturedWindow& window, xcb_window_t id);

    bool isLarge(xcb_window_t id) const;
    void noteUse(xcb_window_t window, QSize limit);
    void work(const Thread& self);
    /// Has the worker look by then for what to let go of.
    void lookBy(Seconds time);
    /// With m_workMutex held; the sooner of this and what is due already.
    void setLook(std::optional<Seconds> time);
    /// When there will be something to let go of, if any.
    std::optional<Seconds> dropUnused();

    RunLoop& m_runLoop;
    const Connection& m_events;
    const Connection& m_captures;
    WindowTracker& m_tracker;
    CaptureTools m_tools;
    const std::shared_ptr<PictureWatchers> m_watchers;
    PictureDrawer::State m_drawing;                              ///< main thread
    std::unordered_map<xcb_damage_damage_t, Damaged> m_byDamage; ///< event thread
    std::uint64_t m_copiesDropped = 0; ///< worker; the count when it last gave back what they took

    mutable std::mutex m_mutex;
    std::unordered_map<xcb_window_t, WindowPtr> m_windows; // guarded by m_mutex

    std::mutex m_workMutex; // guards what follows
    std::condition_variable m_workArrived;
    std::unordered_set<xcb_window_t> m_toName;
    std::deque<xcb_window_t> m_toPrefetch;                   ///< the next one first
    std::unordered_map<std::uint32_t, Seconds> m_lastPinged; ///< by client
    QSize m_lastLimit;
    bool m_isStopping = false;
    std::optional<Seconds> m_nextLook; ///< of the worker for what to let go of
    JoinableThread m_worker;
};

} // namespace lumbrix::platform::x11
