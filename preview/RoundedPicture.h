// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A picture with rounded corners and a thin outline, ready to be put on the screen.
#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>

namespace lumbrix
{

/// Rounds the corners of the picture and draws the outline inside its edges; both sizes in pixels.
/// Only the edges are changed, so this costs little more than copying the picture. The result is
/// ARGB32_Premultiplied; its device pixel ratio is 1. Null for a null picture.
QImage roundedPicture(const QImage& picture, qreal radius, const QColor& outline,
                      qreal outlineWidth);
/// Does the same in what was made so of an earlier picture, where only this part, in pixels, is
/// another since; all of it where that had another size. Keeps the device pixel ratio.
void updateRounded(QImage& rounded, const QImage& picture, const QRect& part, qreal radius,
                   const QColor& outline, qreal outlineWidth);

} // namespace lumbrix
