// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/Corridor.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "engine/HitTest.h"
#include "platform/InputState.h"

namespace lumbrix
{
namespace
{

using Trail = std::vector<platform::MousePlace>;

constexpr platform::Seconds checkInterval = 0.02;
/// A hand that pauses for a tenth of a second hardly moves for twice as long.
constexpr platform::Seconds longestRest = 0.2;
constexpr double restingDistance = 3; ///< points
/// Points that a direction is taken from: fewer are mostly rounding.
constexpr double headingLength = 12;
/// A mouse that aims at a preview aims into it. Past the rim of the row leads the way to the next
/// icon.
constexpr double rimPart = 1.0 / 6;

double distance(QPointF a, QPointF b) { return std::hypot(a.x() - b.x(), a.y() - b.y()); }

bool rests(const Trail& trail)
{
    const auto then = std::ranges::find_if(
        trail, [](const platform::MousePlace& place) { return place.ago >= longestRest; });
    return then == trail.end() || distance(trail.front().at, then->at) < restingDistance;
}

/// Where the mouse goes; zero when it goes nowhere.
QPointF headingOf(const Trail& trail)
{
    const QPointF present = trail.front().at;
    const auto from = std::ranges::find_if(trail, [present](const platform::MousePlace& place) {
        return distance(place.at, present) >= headingLength;
    });
    return from == trail.end() ? QPointF() : present - from->at;
}

/// Whether a ray enters the rectangle at or after its start.
bool isHit(const QRectF& target, QPointF start, QPointF direction)
{
    double enters = 0;
    double leaves = 1e9;
    const auto cut = [&](double from, double step, double first, double last) {
        if (step == 0) {
            if (from < first || from > last)
                leaves = -1;
            return;
        }
        const auto [near, far] = std::minmax({(first - from) / step, (last - from) / step});
        enters = std::max(enters, near);
        leaves = std::min(leaves, far);
    };
    cut(start.x(), direction.x(), target.x(), target.x() + target.width());
    cut(start.y(), direction.y(), target.y(), target.y() + target.height());
    return enters <= leaves;
}

} // namespace

bool Corridor::leadsToRow() const
{
    if (m.row.isEmpty())
        return false;
    const QRectF first = frameOf(*m.row.previews().front());
    return heads(-rimPart * std::min(first.width(), first.height()));
}

bool Corridor::leadsNearRow() const
{
    return heads(static_cast<double>(m.settings.distanceFromDock));
}

bool Corridor::heads(double margin) const
{
    if (!m.settings.keepOnTheWay || m.row.isEmpty() || m.timers.isSwitcherWatched())
        return false;
    const Trail trail = m.ports.inputState.mouseTrail();
    if (trail.empty() || rests(trail))
        return false;
    const QPointF heading = headingOf(trail);
    QRectF row;
    for (const ScreenyViewPtr& preview : m.row.previews())
        row |= frameOf(*preview);
    return !heading.isNull() &&
           isHit(row.adjusted(-margin, -margin, margin, margin), trail.front().at, heading);
}

void Corridor::waitAndThen(std::function<void()> action) const
{
    m.hovered.cancelHoverAtRest(); // of an icon that the mouse has passed since
    m.hovered.performAfterDelay(checkInterval, std::move(action));
}

void Corridor::passAndThen(const std::function<void()>& action) const
{
    if (leadsToRow())
        waitAndThen([this, action] { passAndThen(action); });
    else
        action();
}

} // namespace lumbrix
