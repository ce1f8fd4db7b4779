// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The program's own drawings, by name.
#pragma once

#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QImage>
#include <QtGui/QPixmap>

namespace lumbrix
{

/// Main thread. The drawing at a size in points for a device pixel ratio, cached; null if there is
/// no such drawing.
QPixmap namedPixmap(const QString& name, QSize size, qreal devicePixelRatio);

/// Main thread. The drawing as a picture, at twice its natural size to look sharp; null if there is
/// no such drawing.
QImage namedImage(const QString& name);

} // namespace lumbrix
