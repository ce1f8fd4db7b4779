// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QColor>

namespace lumbrix
{

/// A translucent colour as it looks on medium grey, for use if translucency is not blended.
inline QColor onGrey(const QColor& color)
{
    const auto mix = [a = color.alphaF()](float part) { return part * a + 0.5F * (1 - a); };
    return QColor::fromRgbF(mix(color.redF()), mix(color.greenF()), mix(color.blueF()));
}

} // namespace lumbrix
