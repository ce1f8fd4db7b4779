// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How hands move a pointer: smoothly, the fastest in the middle, in a slight bow, at times with a
// pause.
#pragma once

#include <QtCore/QPointF>

#include <chrono>
#include <random>
#include <vector>

namespace lumbrix::bench
{

using Duration = std::chrono::duration<double>;

/// One way from a place to another, in parts that begin and end at rest.
class Way
{
public:
    /// Along a bow that is at most so much aside of the straight line, as a part of its length.
    Way(QPointF from, QPointF to, double bow, Duration time);
    /// With a pause after that part of the way.
    void pause(double part, Duration length);

    Duration time() const { return m_time + m_pause; }
    QPointF at(Duration passed) const;

private:
    QPointF place(double part) const;

    QPointF m_from;
    QPointF m_to;
    double m_bow;
    Duration m_time;
    double m_pauseAt = 0;
    Duration m_pause{};
};

/// Always the same for the same seed.
class Hand
{
public:
    explicit Hand(unsigned seed) : m_random(seed) {}

    double between(double least, double most)
    {
        return std::uniform_real_distribution(least, most)(m_random);
    }
    /// Somewhere about the middle of a place of that extent each way.
    QPointF near(QPointF middle, double x, double y)
    {
        return middle + QPointF(between(-x, x), between(-y, y));
    }
    /// As long as hands take for that distance, some more and some less.
    Way way(QPointF from, QPointF to, double bow);

private:
    std::mt19937 m_random;
};

/// Half of a way's time lies before it is half done; the part of the way that is done after a part
/// of the time.
double smooth(double part);

/// The value below which that part of them lies; 0 without any.
double quantile(std::vector<double> values, double part);

} // namespace lumbrix::bench
