// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Colours as they come back from a screen.
#pragma once

#include <QtGui/QColor>

#include <cstdlib>

namespace lumbrix::privatedesk
{

/// Whether no part of the colour is further off; scaling and shadows change a picture's a little.
inline bool isAbout(QRgb pixel, const QColor& expected, int tolerance = 23)
{
    const auto isNear = [tolerance](int a, int b) { return std::abs(a - b) <= tolerance; };
    return isNear(qRed(pixel), expected.red()) && isNear(qGreen(pixel), expected.green()) &&
           isNear(qBlue(pixel), expected.blue());
}

} // namespace lumbrix::privatedesk
