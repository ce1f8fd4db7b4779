// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/PointSpace.h"

#include <algorithm>
#include <cmath>

namespace lumbrix::platform::x11
{

void PointSpace::setScreens(std::vector<QRect> screens)
{
    if (screens.empty())
        screens.emplace_back(0, 0, 1, 1);
    const std::lock_guard lock(m_mutex);
    m_screens = std::move(screens);
}

std::vector<QRect> PointSpace::screens() const
{
    const std::lock_guard lock(m_mutex);
    return m_screens;
}

QRectF PointSpace::toPoints(const QRect& pixels) const
{
    return {toPoints(pixels.topLeft()), QSizeF(pixels.size()) / m_scale};
}

QPointF PointSpace::toPoints(QPoint pixels) const
{
    const std::lock_guard lock(m_mutex);
    return QPointF(pixels - m_screens.front().topLeft()) / m_scale;
}

QPoint PointSpace::toPixels(QPointF points) const
{
    const std::lock_guard lock(m_mutex);
    const QPointF scaled = points * m_scale;
    return m_screens.front().topLeft() + QPoint(static_cast<int>(std::lround(scaled.x())),
                                                static_cast<int>(std::lround(scaled.y())));
}

QPointF PointSpace::toScreenPoints(QPoint pixels) const
{
    const std::lock_guard lock(m_mutex);
    const QRect& main = m_screens.front();
    const QPoint fromTopLeft = pixels - main.topLeft();
    return QPointF(fromTopLeft.x(), main.height() - fromTopLeft.y()) / m_scale;
}

QPointF PointSpace::toolkitOffset(const QRectF& bounds) const
{
    const QPoint middle = toPixels(bounds.center());
    const std::lock_guard lock(m_mutex);
    const auto outside = [](int value, int start, int length) {
        return std::max({start - value, value - (start + length - 1), 0});
    };
    const auto distance = [&](const QRect& screen) {
        return outside(middle.x(), screen.x(), screen.width()) +
               outside(middle.y(), screen.y(), screen.height());
    };
    const QPointF origin = std::ranges::min_element(m_screens, {}, distance)->topLeft();
    return origin - (origin - QPointF(m_screens.front().topLeft())) / m_scale;
}

} // namespace lumbrix::platform::x11
