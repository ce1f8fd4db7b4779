// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Pictures of 32 bits a pixel, and pieces of them.
#pragma once

#include <QtGui/QImage>

namespace lumbrix::platform::x11
{

/// Painting takes the unused byte of RGB32 for opacity: sets it in every pixel.
void makeOpaque(QImage& picture);
/// The picture in this size and in memory of its own; null for a null one.
QImage scaledOwn(const QImage& picture, QSize size);
/// A picture of RGB32 in 16 bits a pixel. What that loses is scattered, so that it is gone where
/// the picture is shown smaller; black, white and full colours stay what they are.
QImage inHalfTheMemory(const QImage& picture);
/// A part of the picture without a copy, to be read while the picture lives.
QImage pieceOf(const QImage& picture, const QRect& rect);
/// Writes the piece into the picture, which it lies inside; an opaque one stays so.
void putPiece(QImage& picture, QPoint at, const QImage& piece);

} // namespace lumbrix::platform::x11
