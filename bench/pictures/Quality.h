// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How close a scaled picture comes to the exact area average.
#pragma once

#include <QtCore/QSize>
#include <QtGui/QImage>

#include <optional>
#include <vector>

namespace lumbrix::bench
{

/// Blue, green and red of each pixel, as they are stored, without rounding.
struct ExactPicture {
    QSize size;
    std::vector<double> samples;

    /// To the nearest that a pixel can hold.
    QImage rounded() const;
};

/// Each target pixel is the average over the area it covers, in double precision: written to be
/// seen to be right. Both axes must shrink or stay.
ExactPicture areaAverage(const QImage& source, QSize size);

/// What a renderer gives that looks only at the four source pixels nearest to a target pixel.
QImage bilinear(const QImage& source, QSize size);

/// Peak signal-to-noise ratio in dB, without `margin` pixels at each edge. Rounding to eight bits
/// alone gives 58.9 on a picture of many colours; infinite when there is no difference.
double psnr(const QImage& picture, const ExactPicture& exact, int margin = 0);

struct Found {
    QRect place;
    double psnr = 0;
};
/// Where in `panel` the source is shown in its own proportions, at any size and place: the one that
/// fits best, `margin` pixels at each edge of it not looked at.
Found findShown(const QImage& source, const QImage& panel, int margin);

/// Side by side, magnified without smoothing: the middle of the scaled picture, of the exact one,
/// of 16 times their difference, and of the bilinear one.
QImage comparison(const QImage& scaled, const ExactPicture& exact, const QImage& bilinear,
                  QSize part);

} // namespace lumbrix::bench
