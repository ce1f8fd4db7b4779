// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The positions of previews: pure functions from rectangles to rectangles.
#pragma once

#include <QtCore/QRectF>
#include <QtCore/QSizeF>

#include <optional>
#include <vector>

#include "platform/DockEdge.h"

namespace lumbrix::PreviewLayout
{

using platform::DockEdge;

/// Everything a placement depends on; points.
struct Input {
    QRectF icon;   ///< the Dock item, in accessibility coordinates; zero if there is none
    QRectF screen; ///< the one that the previews stay on, in accessibility coordinates
    double mainScreenHeight = 0; ///< height at which screen coordinates are mirrored
    float windowWidth = 0;
    float windowHeight = 0;
    float distanceFromDock = 0;
};

/// The screen that previews stay on: the one that contains most of the icon, otherwise the nearest
/// one. Screens are in accessibility coordinates, the main one first; empty if there are none.
QRectF screenOfIcon(const QRectF& icon, const std::vector<QRectF>& screens);

/// Frames of a strip of `count` previews in screen coordinates, in strip order: a row above a
/// bottom Dock or below one at the top from left to right, a column beside a side Dock from top to
/// bottom. `size` stands in for the size of the settings (a calendar preview has its own).
std::vector<QRectF> strip(DockEdge edge, const Input& input, int count,
                          std::optional<QSizeF> size = std::nullopt);

/// Frames of a row for the switcher, whose list takes the place of the icon: above the list if
/// there is space, otherwise below it, otherwise at the edge of the screen where the row covers
/// least of the list.
std::vector<QRectF> rowBesideSwitcher(const Input& input, int count);

/// Frame of one sample preview beside the icon, in screen coordinates.
QRectF sample(DockEdge edge, const Input& input);

} // namespace lumbrix::PreviewLayout
