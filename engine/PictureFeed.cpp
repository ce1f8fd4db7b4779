// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/PictureFeed.h"

#include <algorithm>
#include <utility>

namespace lumbrix
{
namespace
{

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
    film.cost = costOf(film);
    // The film and its subscription end together, so what is told is of a film that there is.
    film.subscription = m_ports.windowServer.subscribeToPicture(
        window->wid(), [this, shown = preview.get(), window] { changed(*shown, window); });
}

void PictureFeed::keepTo(const std::vector<ScreenyViewPtr>& previews)
{
    std::erase_if(m_films, [&](const Film& film) {
        // A film that is stopped so still becomes exact.
        const bool isStopped = m_settings.disableLivePreviews && !film.isRough;
        return isStopped || film.preview->elementRef() != film.window ||
               std::ranges::find(previews, film.preview) == previews.end();
    });
    // One that is being loaded is followed once it is there.
    for (const ScreenyViewPtr& preview : previews)
        if (!preview->image().isNull() && !m_queue.holds(preview->elementRef()))
            follow(preview);
    for (Film& film : m_films) {
        film.cost = costOf(film);
        if (film.isDue || film.isRough || showCurrent(film))
            continue;
        film.isDue = true;
        film.isMoving = false;
    }
    serve();
}

bool PictureFeed::showCurrent(const Film& film)
{
    return film.isUnderWay || // as far as can be
           bringUpToDate(*film.preview);
}

bool PictureFeed::bringUpToDate(ScreenyView& preview)
{
    const SWElement& window = *preview.elementRef();
    const bool isZoomed = preview.isZoomed();
    const auto known = window.knownPicture(preview.pictureLimit());
    if (!known.isCurrent || (isZoomed && !window.knownPicture({}).isCurrent))
        return false;
    if (!isZoomed)
        show(preview, {known.picture, known.picture.image});
    return true;
}

void PictureFeed::changed(const ScreenyView& preview, const SWElementPtr& window)
{
    Film* film = find(preview, window);
    if (!film || m_settings.disableLivePreviews)
        return;
    const platform::Seconds now = m_ports.runLoop.now();
    if (!std::exchange(film->isDue, true))
        film->dueSince = now;
    film->isMoving = now - film->last < movingInterval;
    serve();
}

platform::Seconds PictureFeed::costOf(const Film& film) const
{
    const auto bounds = m_ports.windowServer.windowBounds(film.window->wid());
    const double scale = film.preview->window()->devicePixelRatioF();
    const double pixels = bounds ? bounds->width() * bounds->height() * scale * scale : 0;
    return (pixels + pixelsPerPicture) / pixelsPerSecond;
}

std::vector<PictureFeed::Film*> PictureFeed::candidates()
{
    std::vector<Film*> due;
    for (Film& film : m_films)
        if (film.isDue && film.preview->elementRef() == film.window)
            due.push_back(&film);
    // The one that is looked at comes first; but where it takes all there is, the others have their
    // turn after each picture of it.
    std::stable_partition(due.begin(), due.end(), [this](const Film* film) {
        return film->preview->isMouseInside() != m_wasOnlyHovered;
    });
    return due;
}

void PictureFeed::serve()
{
    // A slow server is not asked for more before it has answered: it would fall further behind, and
    // bring pictures that are long out of date.
    if (m_underWay > 0)
        return;
    const platform::Seconds now = m_ports.runLoop.now();
    const auto nextRest = noteRests(now);
    const std::vector<Film*> due = candidates();
    if (nextRest)
        serveAt(*nextRest);
    if (due.empty())
        return;
    // A round may be in debt to the next one, but not to that after it.
    const platform::Seconds interval = due.size() < 2 ? minInterval : roundIntervalFor(due);
    const platform::Seconds begin = std::max(m_lastRound + interval, m_freeAt - interval);
    if (begin - now > moment)
        serveAt(begin);
    else
        startRound(now, due, interval);
}

std::optional<platform::Seconds> PictureFeed::noteRests(platform::Seconds now)
{
    std::optional<platform::Seconds> next;
    for (Film& film : m_films) {
        if (!film.isRough || film.isDue)
            continue;
        const platform::Seconds rests = film.last + restInterval;
        if (rests - now > moment)
            next = std::min(next.value_or(rests), rests);
        else
            film.isDue = true;
        film.isMoving = film.isMoving && !film.isDue;
    }
    return next;
}

void PictureFeed::serveAt(platform::Seconds time)
{
    if (m_servedNext && *m_servedNext <= time)
        return;
    platform::RunLoop& runLoop = m_ports.runLoop;
    runLoop.cancelPreviousPerformRequests(this);
    m_servedNext = time;
    runLoop.performAfterDelay(this, time - runLoop.now(), [this] {
        m_servedNext.reset();
        serve();
    });
}

platform::Seconds PictureFeed::roundIntervalFor(const std::vector<Film*>& due)
{
    platform::Seconds all = 0;
    for (const Film* film : due) {
        // Large ones have the server copy for so long that all else waits: not many at once.
        if (film->preview->isMouseInside() || film->cost > roundInterval / 2)
            return roundInterval;
        all += film->cost;
    }
    return std::clamp(all, roundInterval, maxRoundInterval);
}

void PictureFeed::startRound(platform::Seconds now, const std::vector<Film*>& candidates,
                             platform::Seconds interval)
{
    m_lastRound = now;
    m_freeAt = std::max(m_freeAt, now);
    std::vector<Film*> taken;
    for (Film* film : candidates) {
        if (!taken.empty() && m_freeAt >= now + interval)
            break;
        taken.push_back(film);
        m_freeAt += film->cost;
    }
    m_wasOnlyHovered =
        candidates.size() > 1 && taken.size() == 1 && taken.front()->preview->isMouseInside();
    for (Film* film : drawMoving(taken, now))
        capture(*film, now);
    if (m_underWay == 0) // else once it is done
        serve();
}

const PictureFeed::Film* PictureFeed::outdated(platform::Seconds now) const
{
    if (now - m_lastRenewal < renewalInterval)
        return nullptr;
    const Film* result = nullptr;
    for (const Film& film : m_films)
        if (film.isRough && (!result || film.captured < result->captured))
            result = &film;
    return result && now - result->captured > maxDrawn ? result : nullptr;
}

std::vector<PictureFeed::Film*> PictureFeed::drawMoving(const std::vector<Film*>& films,
                                                        platform::Seconds now)
{
    std::vector<Film*> others;
    std::vector<Film*> moving;
    std::vector<platform::PictureDrawing> drawings;
    const Film* const old = outdated(now);
    for (Film* film : films) {
        if (film == old)
            m_lastRenewal = now;
        // A zoomed one is needed whole.
        auto surface = film->isMoving && film != old && !film->preview->isZoomed()
                           ? film->preview->pictureSurface()
                           : std::nullopt;
        (surface ? moving : others).push_back(film);
        if (surface) {
            const bool isFaster = now - film->dueSince > noticeableWait;
            const bool tellsNext = !isFaster || now - film->told >= tellingInterval;
            drawings.push_back({film->window->wid(), std::move(*surface), tellsNext});
        }
    }
    if (moving.empty())
        return others;
    const std::vector<bool> drawn = m_ports.windowServer.drawMovingWindows(drawings);
    for (std::size_t i = 0; i < moving.size(); ++i) {
        Film& film = *moving[i];
        if (!drawn[i]) {
            others.push_back(&film);
            continue;
        }
        film.preview->noteDrawnPicture();
        film.isDue = !drawings[i].tellsNext;
        (film.isDue ? film.dueSince : film.told) = now;
        film.isRough = true;
        film.last = now;
        moveToEnd(film);
    }
    return others;
}

void PictureFeed::capture(Film& film, platform::Seconds now)
{
    film.isDue = false;
    film.isRough = false;
    if (showCurrent(film)) // somebody else captured it
        return;
    film.isUnderWay = true;
    film.last = now;
    film.captured = now;
    film.isRough = film.isMoving && !film.preview->isZoomed();
    ++m_underWay;
    const ScreenyView& preview = *film.preview;
    const CaptureQueue::Wish wish{preview.pictureLimit(), preview.isZoomed(), film.isRough};
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
    moveToEnd(film);
}

void PictureFeed::moveToEnd(const Film& film)
{
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
