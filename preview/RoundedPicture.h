// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A picture with rounded corners and a thin outline, ready to be put on the screen.
#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QRegion>

namespace lumbrix
{

/// Makes `rounded` the picture with its corners rounded and the outline drawn inside its edges;
/// both sizes in pixels. Only the edges are changed, so this costs little more than copying the
/// picture. The result is ARGB32_Premultiplied. Where it was made so of an earlier picture of this
/// size, only `part`, in pixels, is made anew, and it keeps its device pixel ratio. The picture is
/// not null.
void updateRounded(QImage& rounded, const QImage& picture, const QRect& part, qreal radius,
                   const QColor& outline, qreal outlineWidth);
/// Of a picture with rounded corners, the pixels inside an edge of this breadth; all in pixels.
QRegion innerPart(QSize size, qreal radius, qreal edge);
/// The straight part of its outline, which is not rounded.
QRegion straightOutline(QSize size, qreal radius, int outlineWidth);
/// Whether all its pixels there are opaque. The region lies inside the picture.
bool isOpaque(const QImage& picture, const QRegion& part);

} // namespace lumbrix
