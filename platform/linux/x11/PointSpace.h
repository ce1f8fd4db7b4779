// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Converts between pixels of the root window and points of the ports. Points have their origin at
// the top left of the main screen, the one with the dock.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QPointF>
#include <QtCore/QRect>
#include <QtCore/QRectF>

#include <atomic>
#include <mutex>
#include <vector>

namespace lumbrix::platform::x11
{

/// Any thread.
class PointSpace
{
public:
    explicit PointSpace(double pixelsPerPoint) : m_scale(pixelsPerPoint) {}

    /// Screens in pixels, the main one first; never empty.
    void setScreens(std::vector<QRect> screens);
    std::vector<QRect> screens() const;
    double pixelsPerPoint() const { return m_scale; }
    void setPixelsPerPoint(double pixelsPerPoint) { m_scale = pixelsPerPoint; }

    QRectF toPoints(const QRect& pixels) const;
    QPointF toPoints(QPoint pixels) const;
    QPoint toPixels(QPointF points) const;
    /// From points to the toolkit's coordinates, for a panel with these bounds in points: the
    /// toolkit scales what is inside a screen, the panel's, but leaves the screens' origins in
    /// pixels.
    QPointF toolkitOffset(const QRectF& bounds) const;
    /// Bottom-left origin, y upward.
    QPointF toScreenPoints(QPoint pixels) const;

private:
    std::atomic<double> m_scale;
    mutable std::mutex m_mutex;
    std::vector<QRect> m_screens{QRect(0, 0, 1, 1)};
};

} // namespace lumbrix::platform::x11
