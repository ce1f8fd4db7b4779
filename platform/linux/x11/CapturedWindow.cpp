// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/CapturedWindow.h"

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/PictureDrawer.h"
#include "platform/linux/x11/PicturePieces.h"
#include "platform/linux/x11/PointSpace.h"
#include "platform/pictures/PictureScaler.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

qint64 pixelsOf(QSize size) { return qint64{size.width()} * size.height(); }

qint64 pixelsOf(const QRegion& region)
{
    qint64 sum = 0;
    for (const QRect& rect : region)
        sum += pixelsOf(rect.size());
    return sum;
}

bool isMost(const QRegion& region, QSize size) { return pixelsOf(region) * 2 > pixelsOf(size); }

QSize fitted(QSize size, QSize limit)
{
    if (limit.isEmpty())
        return size;
    const double scale = std::min({1.0, static_cast<double>(limit.width()) / size.width(),
                                   static_cast<double>(limit.height()) / size.height()});
    return {std::max(1, qRound(size.width() * scale)), std::max(1, qRound(size.height() * scale))};
}

/// Whether some limit makes a picture of this size of it: one side fits, the other one was rounded.
bool isFitted(QSize size, QSize original)
{
    return fitted(original, {size.width(), original.height()}) == size ||
           fitted(original, {original.width(), size.height()}) == size;
}

} // namespace

CapturedWindow::CapturedWindow(CaptureTools& tools, xcb_window_t window)
    : m_tools(tools), m_window(window), m_pixmap(tools.connection),
      m_drawn(tools.events, tools.connection)
{
}

CapturedWindow::~CapturedWindow() = default;

KeptPicture CapturedWindow::keptFor(QSize limit, const QRect& visible)
{
    const std::lock_guard lock(m_mutex);
    m_visible = visible;
    return limit.isEmpty() ? m_whole : m_reduced;
}

void CapturedWindow::keep(QSize limit, KeptPicture picture)
{
    const std::lock_guard lock(m_mutex);
    std::swap(limit.isEmpty() ? m_whole : m_reduced, picture);
}

bool CapturedWindow::followPixmap()
{
    const std::lock_guard turn(m_turn);
    bool isNew = false;
    followedWindow(&isNew);
    m_tools.connection.discardEvents();
    return isNew;
}

TrackedWindowPtr CapturedWindow::followedWindow(bool* isNew)
{
    // The flag before the window: the snapshot is then no older than what set the flag.
    const bool wasFlagged = m_needsNaming.exchange(false);
    TrackedWindowPtr window = m_tools.tracker.window(m_window);
    if (window && m_tools.policy.refuses(*window)) {
        forgetAll();
        return nullptr;
    }
    if (!window)
        return window;
    const bool isRedirected =
        m_pixmap.redirect(m_tools.isCompositorRunning ? XCB_NONE : window->frame);
    if (!isRedirected && !wasFlagged)
        return window;
    if (!m_pixmap.name(window->frame)) {
        // Not mapped any more: the pixmap we have is its last picture. Or a compositor that is
        // just coming or that spares full-screen windows: worth another try.
        if (window->isMapped)
            m_needsNaming = true;
        return window;
    }
    if (isNew)
        *isNew = true;
    const std::lock_guard lock(m_mutex);
    m_isDirty = true;
    m_hasPixmap = true;
    m_reduced.visible = {}; // of another pixmap
    m_whole.visible = {};
    m_shelved = {};
    return window;
}

void CapturedWindow::forget()
{
    const std::lock_guard turn(m_turn);
    forgetAll();
    m_tools.connection.flush();
}

void CapturedWindow::forgetAll()
{
    m_pixmap.release();
    m_needsNaming = true;
    m_hasPixmap = false;
    const std::lock_guard lock(m_mutex);
    m_visible = {};
    m_reduced = {};
    m_whole = {};
    m_shelved = {};
}

QImage CapturedWindow::capture(QSize limit, Seconds now, bool isMoving)
{
    const std::lock_guard turn(m_turn);
    const TrackedWindowPtr window = followedWindow();
    if (!window)
        return {};
    const KnownPicture picture = known(limit, now);
    // Of a window whose present pixmap cannot be had, there is nothing better.
    if (picture.isCurrent || (m_needsNaming && !picture.image.isNull()))
        return picture.image;
    if (!m_pixmap.id()) {
        m_isDirty = false; // until there is one
        return picture.image;
    }
    const QImage image = bring(*window, limit, isMoving);
    m_tools.connection.discardEvents();
    return image.isNull() ? picture.image : image;
}

bool CapturedWindow::isShelved() const
{
    const std::lock_guard lock(m_mutex);
    return !m_shelved.image.isNull();
}

KnownPicture CapturedWindow::known(QSize limit, Seconds now)
{
    const std::lock_guard lock(m_mutex);
    // In this order, as a capture sets the one before it clears the other.
    const bool isUnchangedNow = isUnchanged() && !m_isUnderWay;
    (limit.isEmpty() ? m_wholeUsed : m_reducedUsed) = now;
    KeptPicture& mine = limit.isEmpty() ? m_whole : m_reduced;
    if (!mine.image.isNull() && mine.limit == limit)
        return {mine.image, isUnchangedNow && mine.stale.isEmpty() && mine.visible == m_visible};
    const bool isAll = isUnchangedNow && !m_hasPixmap;
    const bool isShelved = !m_shelved.image.isNull();
    if (limit.isEmpty())
        return {m_shelved.image, isAll};
    const KeptPicture& other = isShelved ? m_shelved : m_whole.image.isNull() ? m_reduced : m_whole;
    if (other.image.isNull() || other.original.isEmpty())
        return {{}, isAll};
    QImage image = scaledPicture(other.image, fitted(other.original, limit));
    image.setDevicePixelRatio(m_tools.points.pixelsPerPoint());
    if (isShelved)
        m_reduced = {image, limit, other.original, {}, {}};
    return {image, isAll};
}

QRect CapturedWindow::visiblePart(const TrackedWindow& window) const
{
    const QRect& frame = window.frameBounds;
    const QRect& bounds = window.bounds;
    const QMargins hidden(bounds.x() - frame.x(), bounds.y() - frame.y(),
                          frame.x() + frame.width() - bounds.x() - bounds.width(),
                          frame.y() + frame.height() - bounds.y() - bounds.height());
    const QRect all(QPoint(0, 0), m_pixmap.size());
    const QRect visible = all.marginsRemoved(hidden);
    return visible.isEmpty() ? all : visible;
}

QImage CapturedWindow::bring(const TrackedWindow& before, QSize limit, bool isMoving)
{
    // The flag first, then the bounds and the damage, the pixels last: what changes meanwhile is
    // seen or sets the flag again.
    m_isUnderWay = true;
    bool isAsked = m_isDirty.exchange(false);
    const TrackedWindowPtr latest = m_tools.tracker.window(before.id);
    const QRect visible = visiblePart(latest ? *latest : before);
    if (isAsked)
        m_drawn.ask();
    KeptPicture mine = keptFor(limit, visible);
    const bool isFirst = mine.image.isNull() || mine.limit != limit || mine.visible != visible;
    // The answer is waited for only where it is likely to save more than waiting takes.
    bool isWhole = isFirst || (isAsked && m_expectsAll);
    if (isAsked && !isWhole) {
        m_expectsAll = settleDrawn(visible);
        isAsked = false;
        mine = keptFor(limit, visible);
    }
    isWhole = isWhole || isMost(mine.stale, visible.size());
    const KeptPicture whole = keptFor({}, visible);
    const bool hasWhole =
        !limit.isEmpty() && !isAsked && whole.isCurrent() && whole.visible == visible;

    const quint64 copiedBefore = m_copiedPixels;
    const QSize size = fitted(visible.size(), limit);
    QImage image;
    if (isWhole && hasWhole)
        image = scaledOwn(whole.image, size);
    else if (isWhole && isMoving)
        image = scaledOfSamples(size, visible);
    const bool isRough = !hasWhole && !image.isNull();
    m_drawn.send(); // together with what is copied now
    if (image.isNull() && isWhole) {
        image = limit.isEmpty() ? copied(visible) : scaledInBands(size, visible);
    } else if (!isWhole) {
        image = mine.image;
        update(image, mine.stale, visible, hasWhole ? &whole.image : nullptr);
    }
    if (isWhole && limit.isEmpty())
        makeOpaque(image);
    if (m_copiedPixels != copiedBefore) {
        ++m_tools.copies;
        m_tools.copiedPixels += m_copiedPixels - copiedBefore;
    }
    if (isAsked) {
        const bool isAll = settleDrawn(visible);
        // What was drawn before there was a picture tells nothing about what is drawn next.
        m_expectsAll = isAll && !isFirst;
    }
    if (image.isNull()) {
        m_isDirty = true; // worth another try
    } else {
        image.setDevicePixelRatio(m_tools.points.pixelsPerPoint());
        const QRegion stale = isRough ? QRegion(QRect({}, visible.size())) : QRegion();
        keep(limit, {image, limit, visible.size(), visible, stale});
    }
    m_isUnderWay = false;
    return image;
}

bool CapturedWindow::settleDrawn(const QRect& visible)
{
    const QRect all({}, visible.size());
    const auto answer = m_drawn.answer();
    const QPoint origin = QPoint(m_pixmap.border(), m_pixmap.border()) - visible.topLeft();
    const QRegion drawn = answer ? answer->translated(origin) & all : QRegion(all);
    noteStale(drawn);
    return isMost(drawn, all.size());
}

void CapturedWindow::noteStale(const QRegion& drawn)
{
    const std::lock_guard lock(m_mutex);
    m_reduced.stale += drawn;
    m_whole.stale += drawn;
}

bool CapturedWindow::draw(PictureDrawer& drawer, const PictureSurface& surface, bool tellsNext)
{
    const std::unique_lock turn(m_turn, std::try_to_lock);
    if (!turn || !m_isDirty || m_needsNaming || !m_pixmap.id())
        return false;
    const TrackedWindowPtr window = m_tools.tracker.window(m_window);
    if (!window || m_tools.policy.refuses(*window))
        return false;
    const QRect visible = visiblePart(*window);
    const QSize size = surface.picture.size();
    const QSize samples = samplesOfMoving(visible.size(), size);
    if (samples.isEmpty() || !isFitted(size, visible.size()))
        return false;
    // In this order, as in bring(): what is drawn meanwhile sets the flag again. No picture that is
    // kept is current any more.
    noteStale(QRect({}, visible.size()));
    if (tellsNext)
        m_isDirty = false;
    const bool isDrawn = (!tellsNext || m_drawn.clear(drawer.connection())) &&
                         drawer.draw(m_pixmap.id(), m_pixmap.depth(), visible, samples, surface);
    if (!isDrawn)
        m_isDirty = true;
    return isDrawn;
}

void CapturedWindow::update(QImage& image, const QRegion& stale, const QRect& visible,
                            const QImage* whole)
{
    const QSize source = visible.size();
    const bool isScaled = canScaleParts(source, image.size());
    if (!isScaled && image.size() != source) { // several times too large, or minute
        image = scaledInBands(image.size(), visible);
        return;
    }
    QRegion parts = stale;
    if (isScaled) {
        parts = {};
        for (const QRect& rect : stale)
            parts += partMadeOf(rect, source, image.size());
    }
    for (const QRect& part : parts) {
        const QRect from = isScaled ? sourceOfPart(part, source, image.size()) : part;
        const QImage piece =
            whole ? pieceOf(*whole, from) : copied(from.translated(visible.topLeft()));
        if (piece.isNull()) {
            image = {};
            return;
        }
        if (isScaled)
            scalePart(image, part, piece, source);
        else
            putPiece(image, part.topLeft(), piece);
    }
}

QImage CapturedWindow::scaledInBands(QSize size, const QRect& visible)
{
    if (!canScaleParts(visible.size(), size))
        return scaledOwn(copied(visible), size);
    const auto bands = static_cast<int>((pixelsOf(visible.size()) + quickPixels - 1) / quickPixels);
    QImage result(size, m_pixmap.depth() == 32 ? QImage::Format_ARGB32_Premultiplied
                                               : QImage::Format_RGB32);
    for (int band = 0, top = 0; band < bands; ++band) {
        const int bottom = size.height() * (band + 1) / bands;
        const QRect part(0, top, size.width(), bottom - top);
        top = bottom;
        if (part.isEmpty())
            continue;
        const QRect from = sourceOfPart(part, visible.size(), size);
        const QImage piece = copied(from.translated(visible.topLeft()));
        if (piece.isNull())
            return {};
        scalePart(result, part, piece, visible.size());
    }
    return result;
}

QImage CapturedWindow::scaledOfSamples(QSize size, const QRect& visible)
{
    const QSize samples = samplesOfMoving(visible.size(), size);
    if (samples.isEmpty())
        return {};
    const QImage picture = m_tools.copier.copySamples(m_pixmap.id(), visible, m_pixmap.depth(),
                                                      samples, [this] { m_drawn.send(); });
    m_copiedPixels += static_cast<quint64>(pixelsOf(picture.size()));
    return scaledOwn(picture, size);
}

QImage CapturedWindow::copied(const QRect& rect)
{
    QImage piece = m_tools.copier.copy(m_pixmap.id(), rect, m_pixmap.depth());
    if (!piece.isNull())
        m_copiedPixels += static_cast<quint64>(pixelsOf(rect.size()));
    return piece;
}

std::optional<Seconds> CapturedWindow::dropUnused(Seconds now)
{
    std::optional<Seconds> next;
    const auto isDue = [&](Seconds due) {
        if (due > now)
            next = std::min(next.value_or(due), due);
        return due <= now;
    };
    Seconds hiddenAt = m_hiddenAt;
    // Shown again and hidden again meanwhile, it has its time before it.
    if (hiddenAt >= 0 && isDue(hiddenAt + keepPixmap) &&
        m_hiddenAt.compare_exchange_strong(hiddenAt, -1))
        shelve();
    KeptPicture reduced;
    KeptPicture whole; // freed without the lock
    const std::lock_guard lock(m_mutex);
    // One that was made of what is kept here is easily made again.
    const Seconds keepIt = m_shelved.image.isNull() ? keepReduced : keepWhole;
    if (!m_reduced.image.isNull() && isDue(m_reducedUsed + keepIt))
        std::swap(m_reduced, reduced);
    if (!m_whole.image.isNull() && isDue(m_wholeUsed + keepWhole))
        std::swap(m_whole, whole);
    return next;
}

void CapturedWindow::shelve()
{
    const std::lock_guard turn(m_turn);
    const TrackedWindowPtr window = m_tools.tracker.window(m_window);
    if (!window || window->isMapped || !m_pixmap.id() || pixelsOf(m_pixmap.size()) <= shelvedPixels)
        return;
    m_isUnderWay = true;
    const bool wasDirty = m_isDirty.exchange(false);
    const QRect visible = visiblePart(*window);
    const QSize size = visible.size();
    const double scale = std::sqrt(shelvedPixels / static_cast<double>(pixelsOf(size)));
    QImage image = scaledInBands(fitted(size, (QSizeF(size) * scale).toSize()), visible);
    m_tools.connection.discardEvents();
    if (image.format() == QImage::Format_RGB32)
        image = inHalfTheMemory(image);
    if (image.isNull()) {
        m_isDirty = wasDirty;
    } else {
        image.setDevicePixelRatio(m_tools.points.pixelsPerPoint() * image.width() / size.width());
        const std::lock_guard lock(m_mutex);
        m_shelved = {image, {}, size, visible, {}};
        m_whole = {};
        if (wasDirty || !m_reduced.isCurrent() || m_reduced.visible != visible)
            m_reduced = {};
        m_reduced.visible = {};
        m_visible = {};
        m_pixmap.release();
        m_hasPixmap = false;
    }
    m_isUnderWay = false;
}

} // namespace lumbrix::platform::x11
