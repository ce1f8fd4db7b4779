// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/UIElementUtilities.h"

#include "platform/Desktop.h"
#include "platform/WindowServer.h"

namespace lumbrix
{
namespace
{

QPointF mirrored(QPointF point)
{
    const auto screens = platform::desktop().windowServer.screens();
    if (screens.empty())
        return {};
    return {point.x(), screens.front().height() - point.y()};
}

} // namespace

QPointF UIElementUtilities::carbonScreenPointFromCocoaScreenPoint(QPointF point)
{
    return mirrored(point);
}

QPointF UIElementUtilities::cocoaScreenPointFromCarbonScreenPoint(QPointF point)
{
    return mirrored(point);
}

QRectF UIElementUtilities::flippedScreenBounds(const QRectF& bounds)
{
    const auto screens = platform::desktop().windowServer.screens();
    const QRectF screen = screens.empty() ? QRectF() : screens.front();
    const qreal y = screen.y() + screen.height() - (bounds.y() + bounds.height());
    return {bounds.x(), y, bounds.width(), bounds.height()};
}

} // namespace lumbrix
