// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The pictures of one window: where they come from, and what is kept of them.
#pragma once

#include <QtGui/QImage>
#include <QtGui/QRegion>

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>

#include "platform/RunLoop.h"
#include "platform/WindowServer.h"
#include "platform/linux/x11/CapturePolicy.h"
#include "platform/linux/x11/DrawnRegion.h"
#include "platform/linux/x11/ImageCopier.h"
#include "platform/linux/x11/NamedPixmap.h"
#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform::x11
{

class PictureDrawer;
class PointSpace;

/// What all windows are captured with. Outlives them. Any thread.
struct CaptureTools {
    CaptureTools(const Connection& ofEvents, const Connection& captures,
                 const WindowTracker& windows, const PointSpace& space, bool isComposited)
        : events(ofEvents), connection(captures), tracker(windows), points(space),
          isCompositorRunning(isComposited), copier(captures)
    {
    }

    const Connection& events;     ///< of the event thread
    const Connection& connection; ///< without an event thread
    const WindowTracker& tracker;
    const PointSpace& points;
    std::atomic<bool> isCompositorRunning;
    CapturePolicy policy;
    ImageCopier copier;
    std::atomic<std::uint64_t> copies = 0; ///< of pictures, whole or in part
    std::atomic<std::uint64_t> copiedPixels = 0;
};

/// A picture as it was last brought up to date.
struct KeptPicture {
    QImage image;
    QSize limit;    ///< that it was reduced to; empty: to none
    QSize original; ///< pixels of what it shows
    QRect visible;  ///< what it shows of the pixmap; empty: of a former one
    QRegion stale;  ///< of that, what was drawn on since

    bool isCurrent() const { return !image.isNull() && stale.isEmpty(); }
};

/// Keeps the picture in the size last asked for, and the whole one while it is asked for. Only what
/// was drawn on is copied and scaled again. Once the window is not shown any more its pixmap, if it
/// is large, gives way to a picture of bounded size on this side.
///
/// Any thread, unless said otherwise; a capture waits only for another one of the same window.
class CapturedWindow
{
public:
    static constexpr Seconds keepReduced = 600.0; ///< what a row comes up with, however old
    static constexpr Seconds keepWhole = 2.0;
    static constexpr Seconds keepPixmap = 2.0; ///< of a window that is not shown any more
    /// Of the picture that stands for a large pixmap: two and a half times as many as usual
    /// previews have, of 16 bits each where it is opaque.
    static constexpr int shelvedPixels = 80 * 1024;
    /// The server serves nobody else while it copies, and a picture that is copied in several
    /// pieces may show two moments of a film: so only what is larger than usual screens is cut.
    static constexpr qint64 quickPixels = qint64{2} * 1024 * 1024;

    CapturedWindow(CaptureTools& tools, xcb_window_t window);
    ~CapturedWindow();

    // Event thread.
    xcb_damage_damage_t watchDamage(xcb_window_t frame) { return m_drawn.watch(frame); }
    xcb_damage_damage_t forgetDamage() { return m_drawn.forget(); }
    void noteDrawn() { m_isDirty = true; }
    /// The window has, or may have, another pixmap now.
    void noteNewPixmap() { m_needsNaming = true; }
    /// It is not shown since `now`, or it is shown (null).
    void noteHidden(std::optional<Seconds> now) { m_hiddenAt = now.value_or(-1); }

    /// Whether a capture would not bring anything newer than the last.
    bool isUnchanged() const { return !m_isDirty && !m_needsNaming; }
    /// As WindowPictures has it.
    QImage capture(QSize limit, Seconds now, bool isMoving = false);
    KnownPicture known(QSize limit, Seconds now);
    /// Has its picture drawn, as it is now, if something was drawn since the last look and nothing
    /// has to be waited for; whether it is.
    bool draw(PictureDrawer& drawer, const PictureSurface& surface, bool tellsNext);
    /// Whether a picture of bounded size stands for the pixmap, of which others are made.
    bool isShelved() const;
    /// Names the pixmap that the window has now, if it is another. Whether it is.
    bool followPixmap();
    /// Drops every picture and the pixmap, which is that of a hidden window's last picture.
    void forget();
    /// Lets go of what nobody asked for lately; when to come again, if at all.
    std::optional<Seconds> dropUnused(Seconds now);

private:
    // With m_turn held.
    void forgetAll();
    /// Null as well for a window that must not be captured.
    TrackedWindowPtr followedWindow(bool* isNew = nullptr);
    QImage bring(const TrackedWindow& before, QSize limit, bool isMoving);
    QRect visiblePart(const TrackedWindow& window) const; ///< of the pixmap
    /// Copies what is stale, from the whole picture if there is one that is current; null where
    /// that fails.
    void update(QImage& image, const QRegion& stale, const QRect& visible, const QImage* whole);
    QImage scaledInBands(QSize size, const QRect& visible);
    /// Of some of the pixels only; null where all are wanted, or the server cannot.
    QImage scaledOfSamples(QSize size, const QRect& visible);
    QImage copied(const QRect& rect);
    void noteStale(const QRegion& drawn);
    /// Takes the answer where something was drawn; whether that is most of it.
    bool settleDrawn(const QRect& visible);

    void shelve();
    /// What is kept, and from now on only current if it shows this part.
    KeptPicture keptFor(QSize limit, const QRect& visible);
    void keep(QSize limit, KeptPicture picture);

    CaptureTools& m_tools;
    const xcb_window_t m_window;
    std::atomic<bool> m_isDirty = true;     ///< something was drawn since the last look
    std::atomic<bool> m_needsNaming = true; ///< so what we have is its last picture before that
    std::atomic<bool> m_isUnderWay = false; ///< not dirty any more, and not yet kept
    std::atomic<bool> m_hasPixmap = false;
    std::atomic<Seconds> m_hiddenAt = -1; ///< negative: not hidden

    std::mutex m_turn; // guards what follows, for as long as the server takes
    NamedPixmap m_pixmap;
    DrawnRegion m_drawn;
    bool m_expectsAll = false; ///< last time most of it was drawn on
    std::uint64_t m_copiedPixels = 0;

    mutable std::mutex m_mutex; // guards what follows, for moments
    QRect m_visible;            ///< what a current picture shows of the pixmap; empty without one
    KeptPicture m_reduced;
    KeptPicture m_whole;
    KeptPicture m_shelved; ///< in place of the pixmap
    Seconds m_reducedUsed = 0;
    Seconds m_wholeUsed = 0;
};

} // namespace lumbrix::platform::x11
