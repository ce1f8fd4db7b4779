// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where a badge lies, and its colours. Pure.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QRectF>
#include <QtGui/QColor>
#include <QtGui/QImage>

#include <cstdint>
#include <optional>

namespace lumbrix
{

/// The frame of a badge on a Dock item, both in screen coordinates (y upward). The position is as
/// WindowCountBadger has it; `extra` points are added to the size that the item asks for.
QRectF badgeFrame(const QRectF& item, std::int32_t position, float extra);

/// The template in the badge's colour: its brightness shades the colour, its transparency stays.
QImage tinted(const QImage& shape, const QColor& color);
/// White, or black where that could not be read on a badge of this colour.
QColor numberColor(const QColor& badge);

inline const QColor defaultBadgeColor(0, 122, 255);
/// As "#rrggbbaa", so that the settings can be read and written by hand.
QByteArray archivedColor(const QColor& color);
/// Also without the last two digits; null for anything else.
std::optional<QColor> unarchivedColor(const QByteArray& data);

} // namespace lumbrix
