// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/HitTest.h"

namespace lumbrix
{

bool contains(const QRectF& rect, QPointF point)
{
    return point.x() >= rect.x() && point.x() < rect.x() + rect.width() && point.y() >= rect.y() &&
           point.y() < rect.y() + rect.height();
}

bool isHovered(platform::InputState& input, const SWElementPtr& item)
{
    return item && contains(item->getNSRect(), input.mouseLocation());
}

QRectF frameOf(const ScreenyView& preview)
{
    return preview.window() ? preview.window()->frame() : QRectF();
}

void trackHover(ScreenyView& preview, bool isInside)
{
    if (isInside && !preview.isHovered())
        preview.mouseEntered();
    else if (!isInside && preview.isMouseInside())
        preview.mouseExited();
}

} // namespace lumbrix
