// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/Hand.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace lumbrix::bench
{

// The least change of acceleration.
double smooth(double part)
{
    const double t = std::clamp(part, 0.0, 1.0);
    return t * t * t * (10 - 15 * t + 6 * t * t);
}

double quantile(std::vector<double> values, double part)
{
    if (values.empty())
        return 0;
    std::ranges::sort(values);
    return values[static_cast<std::size_t>(
        std::lround(part * static_cast<double>(values.size() - 1)))];
}

Way::Way(QPointF from, QPointF to, double bow, Duration time)
    : m_from(from), m_to(to), m_bow(bow), m_time(time)
{
}

void Way::pause(double part, Duration length)
{
    m_pauseAt = part;
    m_pause = length;
}

QPointF Way::place(double part) const
{
    const QPointF way = m_to - m_from;
    return m_from + way * part +
           QPointF(-way.y(), way.x()) * (m_bow * std::sin(std::numbers::pi * part));
}

QPointF Way::at(Duration passed) const
{
    // Shorter parts are made in less time, though not in proportion.
    const Duration first =
        m_time * std::sqrt(m_pauseAt) / (std::sqrt(m_pauseAt) + std::sqrt(1 - m_pauseAt));
    if (passed < first)
        return place(m_pauseAt * smooth(passed / first));
    passed -= first + m_pause;
    if (passed.count() < 0)
        return place(m_pauseAt);
    return place(m_pauseAt + (1 - m_pauseAt) * smooth(passed / (m_time - first)));
}

Way Hand::way(QPointF from, QPointF to, double bow)
{
    const QPointF line = to - from;
    constexpr double aim = 40; // about the size of what is aimed at
    const double difficulty = std::log2(std::hypot(line.x(), line.y()) / aim + 1);
    const double seconds = (0.15 + 0.12 * difficulty) * between(0.75, 1.5);
    return {from, to, between(-bow, bow), Duration(seconds)};
}

} // namespace lumbrix::bench
