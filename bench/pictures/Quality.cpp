// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "pictures/Quality.h"
#include "platform/StringLiterals.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

namespace lumbrix::bench
{

namespace
{

constexpr int channels = 3;

struct Tap {
    int at;
    double weight;
};

/// The source samples under each target sample, and how much of it they cover.
std::vector<std::vector<Tap>> coverage(int source, int target)
{
    const double ratio = static_cast<double>(source) / target;
    std::vector<std::vector<Tap>> axis(static_cast<std::size_t>(target));
    for (int i = 0; i < target; ++i) {
        const double begin = i * ratio;
        const double end = std::min<double>((i + 1) * ratio, source);
        for (int at = static_cast<int>(begin); at < end; ++at)
            axis[i].push_back(
                {at, (std::min<double>(at + 1, end) - std::max<double>(at, begin)) / ratio});
    }
    return axis;
}

/// Sum of the squared differences over a picture's inner part, given up beyond the limit.
double squares(const QImage& picture, QPoint offset, const ExactPicture& exact, int margin,
               double limit)
{
    double sum = 0;
    for (int y = margin; y < exact.size.height() - margin && sum < limit; ++y) {
        const uchar* line = picture.constScanLine(offset.y() + y) + std::ptrdiff_t{4} * offset.x();
        const double* right =
            exact.samples.data() + static_cast<std::size_t>(y) * exact.size.width() * channels;
        for (int x = margin; x < exact.size.width() - margin; ++x) {
            for (int c = 0; c < channels; ++c) {
                const double difference = line[x * 4 + c] - right[x * channels + c];
                sum += difference * difference;
            }
        }
    }
    return sum;
}

double decibels(double squares, QSize size, int margin)
{
    const double count =
        1.0 * (size.width() - 2 * margin) * (size.height() - 2 * margin) * channels;
    return 10 * std::log10(255.0 * 255.0 * count / squares);
}

} // namespace

QImage ExactPicture::rounded() const
{
    QImage result(size, QImage::Format_RGB32);
    const double* sample = samples.data();
    for (int y = 0; y < size.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < size.width(); ++x, sample += channels)
            line[x] = qRgb(qRound(sample[2]), qRound(sample[1]), qRound(sample[0]));
    }
    return result;
}

ExactPicture areaAverage(const QImage& source, QSize size)
{
    const auto columns = coverage(source.width(), size.width());
    const auto rows = coverage(source.height(), size.height());
    ExactPicture result{size, {}};
    result.samples.reserve(columns.size() * rows.size() * channels);
    for (const std::vector<Tap>& row : rows) {
        for (const std::vector<Tap>& column : columns) {
            double sums[channels] = {};
            for (const Tap& y : row) {
                const uchar* line = source.constScanLine(y.at);
                for (const Tap& x : column)
                    for (int c = 0; c < channels; ++c)
                        sums[c] += y.weight * x.weight * line[x.at * 4 + c];
            }
            result.samples.insert(result.samples.end(), std::begin(sums), std::end(sums));
        }
    }
    return result;
}

QImage bilinear(const QImage& source, QSize size)
{
    const auto near = [](int i, int length, int target) {
        const double centre = std::clamp((i + 0.5) * length / target - 0.5, 0.0, length - 1.0);
        const int low = std::min(static_cast<int>(centre), length - 2);
        return Tap{low, centre - low};
    };
    QImage result(size, QImage::Format_RGB32);
    result.fill(Qt::black);
    for (int y = 0; y < size.height(); ++y) {
        const Tap row = near(y, source.height(), size.height());
        const uchar* upper = source.constScanLine(row.at);
        const uchar* lower = source.constScanLine(row.at + 1);
        uchar* out = result.scanLine(y);
        for (int x = 0; x < size.width(); ++x) {
            const Tap column = near(x, source.width(), size.width());
            for (int c = 0; c < channels; ++c) {
                const int at = column.at * 4 + c;
                const double above = std::lerp(upper[at], upper[at + 4], column.weight);
                const double below = std::lerp(lower[at], lower[at + 4], column.weight);
                out[x * 4 + c] = static_cast<uchar>(qRound(std::lerp(above, below, row.weight)));
            }
        }
    }
    return result;
}

double psnr(const QImage& picture, const ExactPicture& exact, int margin)
{
    return decibels(squares(picture, {}, exact, margin, std::numeric_limits<double>::infinity()),
                    exact.size, margin);
}

Found findShown(const QImage& source, const QImage& panel, int margin)
{
    std::vector<QSize> sizes;
    const auto add = [&](QSize size) {
        if (size.width() <= panel.width() && size.height() <= panel.height() &&
            !std::ranges::count(sizes, size))
            sizes.push_back(size);
    };
    const double shape = static_cast<double>(source.width()) / source.height();
    for (int width = panel.width() * 3 / 5; width <= panel.width(); ++width)
        add({width, qRound(width / shape)});
    for (int height = panel.height() * 3 / 5; height <= panel.height(); ++height)
        add({qRound(height * shape), height});

    Found best;
    double bestMean = std::numeric_limits<double>::infinity();
    for (const QSize size : sizes) {
        const ExactPicture exact = areaAverage(source, size);
        const double count = 1.0 * (size.width() - 2 * margin) * (size.height() - 2 * margin);
        for (int y = 0; y <= panel.height() - size.height(); ++y) {
            for (int x = 0; x <= panel.width() - size.width(); ++x) {
                const double sum = squares(panel, {x, y}, exact, margin, bestMean * count);
                if (sum / count >= bestMean)
                    continue;
                bestMean = sum / count;
                best = {QRect(QPoint(x, y), size), decibels(sum, size, margin)};
            }
        }
    }
    return best;
}

QImage comparison(const QImage& scaled, const ExactPicture& exact, const QImage& bilinear,
                  QSize part)
{
    constexpr int magnified = 3;
    constexpr int gap = 6;
    constexpr int line = 24;
    QImage difference(exact.size, QImage::Format_RGB32);
    difference.fill(Qt::black);
    for (int y = 0; y < exact.size.height(); ++y) {
        const double* right =
            exact.samples.data() + static_cast<std::size_t>(y) * exact.size.width() * channels;
        for (int x = 0; x < exact.size.width(); ++x) {
            for (int c = 0; c < channels; ++c) {
                const double error =
                    std::abs(scaled.constScanLine(y)[x * 4 + c] - right[x * channels + c]);
                difference.scanLine(y)[x * 4 + c] = static_cast<uchar>(std::min(255.0, 16 * error));
            }
        }
    }
    const std::pair<QString, QImage> all[] = {
        {u"Lumbrix: %1 dB"_s.arg(psnr(scaled, exact), 0, 'f', 1), scaled},
        {u"Exact area average"_s, exact.rounded()},
        {u"Difference of the two, times 16"_s, difference},
        {u"Bilinear: %1 dB"_s.arg(psnr(bilinear, exact), 0, 'f', 1), bilinear}};
    part = part.boundedTo(exact.size);
    const QSize each = part * magnified;
    QImage sheet(each.width() * 4 + gap * 3, each.height() + line, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    const QRect middle(
        QPoint((exact.size.width() - part.width()) / 2, (exact.size.height() - part.height()) / 2),
        part);
    int left = 0;
    for (const auto& [label, picture] : all) {
        painter.drawImage(QRect(QPoint(left, line), each), picture.copy(middle));
        painter.drawText(QRect(left, 0, each.width(), line), Qt::AlignCenter, label);
        left += each.width() + gap;
    }
    return sheet;
}

} // namespace lumbrix::bench
