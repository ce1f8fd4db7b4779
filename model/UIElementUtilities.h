// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Conversions between the two coordinate systems, and short-hands for reading elements.
//
// Accessibility ("carbon") coordinates: origin at the top left of the main screen, y downward.
// Screen ("cocoa") coordinates: origin at its bottom left, y upward. Both in points. The main
// screen is the first of the window server's list.
#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>

#include "platform/Accessibility.h"

namespace lumbrix
{

class UIElementUtilities
{
public:
    /// Both mirror y at the main screen's height; (0, 0) when no screen is known.
    static QPointF carbonScreenPointFromCocoaScreenPoint(QPointF point);
    static QPointF cocoaScreenPointFromCarbonScreenPoint(QPointF point);
    /// A rectangle measured from the top becomes one measured from the bottom.
    static QRectF flippedScreenBounds(const QRectF& bounds);
};

} // namespace lumbrix
