// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QImage>

namespace lumbrix::platform
{

/// Any thread except the main one. The picture in another program's file, fitted into the middle of
/// a square with sides of `pixels`; null if it cannot be read, is larger than any icon, has a
/// format not used for icons, or refers to other files.
QImage readIconFile(const QString& path, int pixels);

/// The same of what is in the file; `isDrawing` tells an SVG drawing from a picture of pixels.
QImage iconIn(const QByteArray& bytes, bool isDrawing, int pixels);

} // namespace lumbrix::platform
