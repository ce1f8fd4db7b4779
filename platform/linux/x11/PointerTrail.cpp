// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/PointerTrail.h"

#include <algorithm>
#include <cmath>

namespace lumbrix::platform::x11
{
namespace
{

// Milliseconds.
constexpr std::int64_t kept = 600;
constexpr std::int64_t window = 40; ///< the pace is an average, as reports come late at times
constexpr std::int64_t rest = 40;   ///< without a report: it stood
constexpr std::int64_t report = 8;  ///< of an ordinary mouse; it started so long before it tells
constexpr std::int64_t distinct = 4;

// Points, and points a millisecond.
constexpr double creeping = 0.3;
constexpr double creepsOn = 80;      ///< milliseconds that a hand this slow may take to stop
constexpr double unlikelyStep = 24;  ///< no hand makes it in one report after standing
constexpr double unlikelyGrowth = 8; ///< of its pace in one report, nor does it grow so fast
constexpr double growth = 1.5;       ///< from one average to the next: it sets off
constexpr double growthSlack = 0.06; ///< a pixel more or less in an average
constexpr double drop = 0.75;        ///< it slows down

double distance(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

} // namespace

void PointerTrail::moved(QPoint at, xcb_timestamp_t time, Seconds now, double pixelsPerPoint)
{
    const std::lock_guard lock(m_mutex);
    m_lastAt = now;
    // Of two events, the later one may have the earlier time.
    const std::int64_t passed =
        std::max<std::int32_t>(static_cast<std::int32_t>(time - m_lastTime), 0);
    // Of one motion, several may tell.
    if (!m_history.empty() && m_history.back().at == at && passed == 0)
        return;
    if (m_history.empty() || passed > 0)
        m_lastTime = time;
    add(at, passed);
    const std::int64_t present = m_history.back().time;
    if (m_history.size() == 1 || wasPut(pixelsPerPoint)) {
        m_putAt = present;
        m_stop = at;
        return;
    }
    m_stop = foreseenStop(pixelsPerPoint);
    if (!m_stop)
        m_foreseenAt.reset();
    else if (!m_foreseenAt)
        m_foreseenAt = present;
    // One late report looks like slowing down; the next one shows it.
    if (m_stop && present - *m_foreseenAt < distinct)
        m_stop.reset();
}

void PointerTrail::add(QPoint at, std::int64_t passed)
{
    if (m_history.empty()) {
        m_history.push_back({at, 0});
        return;
    }
    const Sample last = m_history.back();
    const std::int64_t now = last.time + passed;
    if (now - last.time > rest)
        m_history.push_back({last.at, now - report});
    else if (m_history.size() > 1 &&
             (now == last.time || now - m_history[m_history.size() - 2].time < distinct))
        m_history.pop_back();
    m_history.push_back({at, now});
    while (m_history.size() > 2 && m_history[1].time < now - kept)
        m_history.pop_front();
}

QPointF PointerTrail::placeAt(std::int64_t time) const
{
    const auto after = std::ranges::find_if(
        m_history, [time](const Sample& sample) { return sample.time >= time; });
    if (after == m_history.begin())
        return m_history.front().at;
    const Sample& from = *std::prev(after);
    const double part =
        static_cast<double>(time - from.time) / static_cast<double>(after->time - from.time);
    return QPointF(from.at) + QPointF(after->at - from.at) * part;
}

double PointerTrail::speedBefore(std::int64_t time) const
{
    return distance(placeAt(time), placeAt(time - window)) / static_cast<double>(window);
}

bool PointerTrail::wasPut(double pixelsPerPoint) const
{
    const Sample& last = m_history.back();
    const Sample& before = m_history[m_history.size() - 2];
    const double step = distance(last.at, before.at);
    const double pace = step / static_cast<double>(std::max(last.time - before.time, report));
    return step >= unlikelyStep * pixelsPerPoint &&
           speedBefore(before.time) <= std::max(creeping * pixelsPerPoint, pace / unlikelyGrowth);
}

std::optional<QPoint> PointerTrail::foreseenStop(double pixelsPerPoint) const
{
    const Sample& last = m_history.back();
    const QPointF way = QPointF(last.at) - placeAt(last.time - window);
    const double speed = speedBefore(last.time);
    const double before = speedBefore(last.time - window);
    double further = 0;
    if (speed <= creeping * pixelsPerPoint &&
        speed <= growth * before + growthSlack * pixelsPerPoint) {
        further = speed * creepsOn;
    } else if (speed <= drop * before && last.time - m_putAt > 2 * window) {
        // A hand comes to rest along a cubic curve: two thirds of the speed's square over the
        // deceleration. The averages are those of the middles of their windows.
        const double deceleration = (before - speed) / static_cast<double>(window);
        const double present = std::max(0.0, speed - (before - speed) / 2);
        further = 2 * present * present / (3 * deceleration);
    } else {
        return std::nullopt;
    }
    const double length = std::hypot(way.x(), way.y());
    return length > 0 ? (QPointF(last.at) + way * (further / length)).toPoint() : last.at;
}

std::vector<PointerTrail::Place> PointerTrail::places(Seconds now) const
{
    const std::lock_guard lock(m_mutex);
    std::vector<Place> result;
    for (auto it = m_history.rbegin(); it != m_history.rend(); ++it)
        result.push_back(
            {it->at,
             now - m_lastAt + static_cast<double>(m_history.back().time - it->time) / 1000});
    return result;
}

} // namespace lumbrix::platform::x11
