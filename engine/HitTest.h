// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What is under the mouse.
#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>

#include "model/SWElement.h"
#include "platform/InputState.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{

/// Half open, so that of two panels that touch only one holds the mouse. Empty rectangles hold
/// nothing.
bool contains(const QRectF& rect, QPointF point);

/// Whether the mouse is on the Dock item; it is on no null one. Any thread.
bool isHovered(platform::InputState& input, const SWElementPtr& item);

/// Shows or ends a preview's hover state where it differs from where the mouse is.
void trackHover(ScreenyView& preview, bool isInside);
/// The frame of its panel; empty without one.
QRectF frameOf(const ScreenyView& preview);

} // namespace lumbrix
