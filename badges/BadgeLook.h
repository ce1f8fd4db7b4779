// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The frame of a badge, and its colours. Pure functions.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QRectF>
#include <QtGui/QColor>
#include <QtGui/QImage>

#include <cstdint>
#include <optional>

namespace lumbrix
{

/// The frame of a badge on a Dock item, both in screen coordinates (y upward). The position is
/// numbered as in WindowCountBadger; `extra` points are added to the size derived from the item.
QRectF badgeFrame(const QRectF& item, std::int32_t position, float extra);

/// Tints the template with the badge's colour: its brightness shades the colour, its transparency
/// stays.
QImage tinted(const QImage& shape, const QColor& color);
/// White, or black if white is not readable on a badge of this colour.
QColor numberColor(const QColor& badge);

inline const QColor defaultBadgeColor(0, 122, 255);
/// The colour as "#rrggbbaa", so that people can read and edit it in the settings file.
QByteArray archivedColor(const QColor& color);
/// The reverse; the last two digits may be missing. Null for any other text.
std::optional<QColor> unarchivedColor(const QByteArray& data);

} // namespace lumbrix
