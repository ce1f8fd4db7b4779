// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/PictureFeed.h"

#include <algorithm>

namespace lumbrix
{
namespace
{

/// A slow server is not asked for more before it has answered: it would fall further behind, and
/// bring pictures that are long out of date.
constexpr int maxUnderWay = 2;
/// Less is no reason to wait.
constexpr platform::Seconds moment = 0.0005;

} // namespace

PictureFeed::Film* PictureFeed::find(const ScreenyView& preview, const SWElementPtr& window)
{
    const auto found = std::ranges::find_if(m_films, [&](const Film& film) {
        return film.preview.get() == &preview && film.window == window &&
               preview.elementRef() == window;
    });
    return found == m_films.end() ? nullptr : &*found;
}

void PictureFeed::follow(const ScreenyViewPtr& preview)
{
    const SWElementPtr window = preview->elementRef();
    if (m_settings.disableLivePreviews || !window || preview->iCal() || find(*preview, window))
        return;
    Film& film = m_films.emplace_front();
    film.preview = preview;
    film.window = window;
    // The film and its subscription end together, so what is told is of a film that there is.
    film.subscription = m_ports.windowServer.subscribeToPicture(
        window->wid(), [this, shown = preview.get(), window] { changed(*shown, window); });
}

void PictureFeed::keepTo(const std::vector<ScreenyViewPtr>& previews)
{
    std::erase_if(m_films, [&](const Film& film) {
        return m_settings.disableLivePreviews || film.preview->elementRef() != film.window ||
               std::ranges::find(previews, film.preview) == previews.end();
    });
    // One that is being loaded is followed once it is there.
    for (const ScreenyViewPtr& preview : previews)
        if (!preview->image().isNull() && !m_queue.holds(preview->elementRef()))
            follow(preview);
    for (Film& film : m_films)
        film.isDue = film.isDue || !showCurrent(film);
    serve();
}

bool PictureFeed::showCurrent(Film& film)
{
    if (film.isUnderWay)
        return true; // as far as can be
    const bool isZoomed = film.preview->isZoomed();
    const auto known = film.window->knownPicture(film.preview->pictureLimit());
    if (!known.isCurrent || (isZoomed && !film.window->knownPicture({}).isCurrent))
        return false;
    if (!isZoomed)
        show(*film.preview, {known.picture, known.picture.image});
    return true;
}

void PictureFeed::changed(const ScreenyView& preview, const SWElementPtr& window)
{
    Film* film = find(preview, window);
    if (!film)
        return;
    film->isDue = true;
    serve();
}

double PictureFeed::pixelsOf(const Film& film) const
{
    const auto bounds = m_ports.windowServer.windowBounds(film.window->wid());
    const double scale = film.preview->window()->devicePixelRatioF();
    return bounds ? bounds->width() * bounds->height() * scale * scale : 0;
}

bool PictureFeed::mayBeServed(const Film& film, bool isAlone, platform::Seconds now,
                              platform::Seconds& wait) const
{
    if (!film.isDue || film.isUnderWay || film.preview->elementRef() != film.window)
        return false;
    const bool isHovered = film.preview->isMouseInside();
    const platform::Seconds interval = isHovered && !isAlone ? sharedInterval : minInterval;
    const platform::Seconds left = std::max(film.last + interval, m_freeAt) - now;
    if (left > moment)
        wait = std::min(wait, left);
    return left <= moment;
}

PictureFeed::Film* PictureFeed::nextToServe(platform::Seconds now, platform::Seconds& wait)
{
    const bool isAlone = std::ranges::count_if(m_films, &Film::isDue) < 2;
    Film* next = nullptr;
    for (Film& film : m_films) {
        if (!mayBeServed(film, isAlone, now, wait))
            continue;
        // The one that is looked at comes first; but one of the others has its turn after each
        // picture of it.
        const bool isHovered = film.preview->isMouseInside();
        if (isHovered && !m_wasHoveredServed)
            return &film;
        if (!next || (!isHovered && next->preview->isMouseInside()))
            next = &film;
    }
    return next;
}

void PictureFeed::serve()
{
    m_ports.runLoop.cancelPreviousPerformRequests(this);
    while (m_underWay < maxUnderWay) {
        constexpr platform::Seconds never = 1e9;
        platform::Seconds wait = never;
        const platform::Seconds now = m_ports.runLoop.now();
        if (Film* film = nextToServe(now, wait)) {
            capture(*film, now);
            continue;
        }
        if (wait < never)
            m_ports.runLoop.performAfterDelay(this, wait, [this] { serve(); });
        return;
    }
}

void PictureFeed::capture(Film& film, platform::Seconds now)
{
    film.isDue = false;
    if (showCurrent(film)) // somebody else captured it
        return;
    film.isUnderWay = true;
    film.last = now;
    ++m_underWay;
    m_freeAt = std::max(m_freeAt, now) + pixelsOf(film) / pixelsPerSecond;
    m_wasHoveredServed = film.preview->isMouseInside();
    const ScreenyView& preview = *film.preview;
    const CaptureQueue::Wish wish{preview.pictureLimit(), preview.isZoomed()};
    const auto arrived = [this, weak = film.preview->weak_from_this(),
                          window = film.window](const CaptureQueue::Captured& captured) {
        --m_underWay;
        const ScreenyViewPtr shown = weak.lock();
        if (Film* served = shown ? find(*shown, window) : nullptr) {
            served->isUnderWay = false;
            show(*shown, captured);
        }
        serve();
    };
    m_queue.capture(film.window, wish, m_guard.ifAlive(arrived));
    // The others come before it now.
    const auto self =
        std::ranges::find_if(m_films, [&film](const Film& each) { return &each == &film; });
    m_films.splice(m_films.end(), m_films, self);
}

void PictureFeed::show(ScreenyView& preview, const CaptureQueue::Captured& captured)
{
    // A window that is about to go may have none any more; its preview need not tell.
    if (captured.reduced.isNull() && !preview.image().isNull())
        return;
    preview.elementRef()->setScreenshot(captured.picture);
    // A music player shows what it plays, which comes with the update.
    if (!preview.iTunes() || preview.image().isNull())
        preview.setCapture(captured.reduced);
    preview.updateZoom();
}

} // namespace lumbrix
