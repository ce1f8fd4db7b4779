// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Scales the pictures of windows to the size of a preview.
#pragma once

#include <QtCore/QSize>
#include <QtGui/QImage>

namespace lumbrix
{

/// The instructions to use; the picture is the same, to the bit.
enum class Arithmetic {
    Widest, ///< the widest registers of this processor
    Plain,  ///< what every processor has
};

/// The picture in exactly `size` pixels: each axis that shrinks is averaged over the area a target
/// pixel covers, each that grows is interpolated. The result is RGB32 for opaque sources (whatever
/// the bits hold that are no colour, in the result they are set), else ARGB32_Premultiplied; its
/// device pixel ratio is 1. Null when the source or the size is empty; a source of that size
/// already is returned as it is. Any thread.
QImage scaledPicture(const QImage& source, QSize size, Arithmetic arithmetic = Arithmetic::Widest);

/// How large, in pixels, to draw a picture that is to cover so many of the toolkit's points: as it
/// is where only the rounding to whole points keeps it from fitting, as scaling by a single pixel
/// would blur all of it. Any thread.
QSize pixelsToDraw(QSize picture, QSize points, double pixelsPerPoint);

} // namespace lumbrix
