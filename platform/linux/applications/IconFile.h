// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QImage>

namespace lumbrix::platform
{

/// Any thread, but not the main one. The picture in a file of another program, fitted into the
/// middle of a square of so many pixels; null when it cannot be read, is larger than any icon, is
/// of a format that icons do not have, or needs other files.
QImage readIconFile(const QString& path, int pixels);

/// The same of what is in the file; `isDrawing` tells an SVG drawing from a picture of pixels.
QImage iconIn(const QByteArray& bytes, bool isDrawing, int pixels);

} // namespace lumbrix::platform
