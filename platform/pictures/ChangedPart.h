// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where two pictures differ.
#pragma once

#include <QtCore/QRect>
#include <QtGui/QImage>

namespace lumbrix
{

/// The smallest rectangle, in pixels, outside which both pictures are the same; empty where nothing
/// differs. All of the later one where they are not of one size, of one format with 32 bits a pixel
/// and of one device pixel ratio. Any thread.
QRect changedPart(const QImage& before, const QImage& after);

/// The toolkit's points in which these pixels of a picture are painted that is not scaled.
QRect pointsOf(const QRect& pixels, double pixelsPerPoint);

} // namespace lumbrix
