// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The hills of the private desktops' wallpapers.
#pragma once

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>

namespace lumbrix::privatedesk
{

/// Over a sky that is there already; for a painter of 1440×900.
inline void paintHills(QPainter& painter)
{
    for (int hill = 0; hill < 4; ++hill) {
        const double top = 520 + 90 * hill;
        QPainterPath path(QPointF(0, top + 60));
        path.cubicTo(300, top - 120 + 50 * hill, 700, top + 160, 1000, top);
        path.cubicTo(1150, top - 80, 1300, top - 20 * hill, 1440, top + 40);
        path.lineTo(1440, 900);
        path.lineTo(0, 900);
        painter.fillPath(path, QColor(92 - 18 * hill, 66 - 10 * hill, 104 - 14 * hill));
    }
}

} // namespace lumbrix::privatedesk
