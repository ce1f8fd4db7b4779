// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A picture with rounded corners and a thin outline, ready to be put on the screen.
#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>

namespace lumbrix
{

/// Makes `rounded` the picture with its corners rounded and the outline drawn inside its edges;
/// both sizes in pixels. Only the edges are changed, so this costs little more than copying the
/// picture. The result is ARGB32_Premultiplied. Where it was made so of an earlier picture of this
/// size, only `part`, in pixels, is made anew, and it keeps its device pixel ratio. The picture is
/// not null.
void updateRounded(QImage& rounded, const QImage& picture, const QRect& part, qreal radius,
                   const QColor& outline, qreal outlineWidth);

} // namespace lumbrix
