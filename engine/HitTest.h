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

/// Half open: of two adjacent panels only one contains the mouse. An empty rectangle contains
/// nothing.
bool contains(const QRectF& rect, QPointF point);

/// Whether the mouse is on the Dock item; false for null. Any thread.
bool isHovered(platform::InputState& input, const SWElementPtr& item);

/// Starts or ends a preview's hover state if it does not match the mouse position.
void trackHover(ScreenyView& preview, bool isInside);
/// The frame of its panel; empty if it has none.
QRectF frameOf(const ScreenyView& preview);

} // namespace lumbrix
