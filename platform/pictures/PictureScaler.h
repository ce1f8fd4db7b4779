// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Scales the pictures of windows to the size of a preview.
#pragma once

#include <QtCore/QRect>
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

/// Whether a picture of the one size is scaled to the other in parts by the functions below: not
/// where nothing has to be scaled, nor where the source is minute or several times too large.
bool canScaleParts(QSize source, QSize target);
/// The pixels of the scaled picture that those of the source have a share in; empty where none is
/// in the source.
QRect partMadeOf(const QRect& changed, QSize source, QSize target);
/// The pixels of the source that a part (not empty, inside the target) is made of, and as many more
/// as scaling wants at least.
QRect sourceOfPart(const QRect& part, QSize source, QSize target);
/// Scales this part of a picture again, to the bit as scaledPicture() scales the whole. The piece
/// is sourceOfPart() of the source, which is of this size, and of 32 bits as both pictures are;
/// nothing happens where it is not. Only where canScaleParts().
void scalePart(QImage& scaled, const QRect& part, const QImage& piece, QSize source,
               Arithmetic arithmetic = Arithmetic::Widest);

/// The size of the picture that one of something that moves may be made of, by scaling it: of some
/// of the source's pixels, spread evenly over it, a whole number for each of the target's. Empty
/// where these would be no small part of all. Any thread.
QSize samplesOfMoving(QSize source, QSize target);

/// How large, in pixels, to draw a picture that is to cover so many of the toolkit's points: as it
/// is where only the rounding to whole points keeps it from fitting, as scaling by a single pixel
/// would blur all of it. Any thread.
QSize pixelsToDraw(QSize picture, QSize points, double pixelsPerPoint);

} // namespace lumbrix
