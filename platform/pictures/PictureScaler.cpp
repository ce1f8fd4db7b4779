// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/pictures/PictureScaler.h"

#include "platform/pictures/Lanes.h"
#include "platform/pictures/ScaleAxis.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <utility>
#include <vector>

namespace lumbrix
{
namespace
{

// Samples are held as 8.8 fixed point in 16 bits, weights as 0.16: a product's high half is again
// 8.8, and many of them fit one register.
constexpr std::size_t channels = 4;
constexpr int maxRatio = 64; // more than this is done in two steps, or the sums overflow

constexpr std::size_t plainLanes = 8; // what every processor of the last twenty years has
constexpr std::size_t wideLanes = 16;
constexpr int spare = wideLanes / channels; // pixels that may be read together with one
constexpr int minWidth = wideLanes * 2 / channels;

/// A span of rows: the first, those of equal weight in the middle, the last.
struct RowWeights {
    explicit RowWeights(const ScaleSpan& span)
        : first(span.weights[0]), middleCount(std::max(span.count - 2, 0)), hasLast(span.count > 1),
          last(hasLast ? span.weights[span.count - 1] : 0)
    {
        if (middleCount > 0) {
            while (((255 * middleCount) << (shift + 1)) <= 0xffff && shift < 8)
                ++shift;
            const int sum = std::accumulate(span.weights + 1, span.weights + 1 + middleCount, 0);
            middle = static_cast<std::uint16_t>((sum << 8 >> shift) / (2 * middleCount));
        }
    }

    std::uint16_t first;
    int middleCount;
    bool hasLast;
    std::uint16_t last;
    int shift = 0;            ///< by which the sum of the middle ones still fits 16 bits
    std::uint16_t middle = 0; ///< half the weight, for the sum shifted so
    /// What truncating the products loses on average.
    std::uint16_t bias() const { return middleCount > 0 ? 2 : 1; }
};

/// Sums source rows into one row of 8.8 samples. Bytes of even and of odd places are summed
/// apart.
template <std::size_t Count>
[[gnu::always_inline]] inline void sumRows(const uchar* rows, qsizetype stride,
                                           const RowWeights& row, std::size_t samples,
                                           std::uint16_t* out)
{
    using Some = Lanes<Count>;
    const std::size_t lastBlock = samples - Some::byteCount;
    Some firstWeight;
    Some middleWeight;
    Some lastWeight;
    Some bias;
    firstWeight.setAll(row.first);
    middleWeight.setAll(row.middle);
    lastWeight.setAll(row.last);
    bias.setAll(row.bias());
    for (std::size_t next = 0; next < samples; next += Some::byteCount) {
        const std::size_t at = std::min(next, lastBlock);
        const uchar* in = rows + at;
        Some bytes;
        bytes.load(in);
        Some even = bias;
        Some odd = bias;
        even.addProduct(bytes.values << 8, firstWeight.values);
        odd.addProduct(bytes.values & 0xff00, firstWeight.values);
        in += stride;
        if (row.middleCount > 0) {
            typename Some::Vector sum{};
            typename Some::Vector oddSum{};
            for (int i = 0; i < row.middleCount; ++i, in += stride) {
                bytes.load(in);
                sum += bytes.values;
                oddSum += bytes.values >> 8;
            }
            Some half;
            half.values = typename Some::Vector{};
            half.addProduct((sum - (oddSum << 8)) << row.shift, middleWeight.values);
            even.values += half.values + half.values;
            half.values = typename Some::Vector{};
            half.addProduct(oddSum << row.shift, middleWeight.values);
            odd.values += half.values + half.values;
        }
        if (row.hasLast) {
            bytes.load(in);
            even.addProduct(bytes.values << 8, lastWeight.values);
            odd.addProduct(bytes.values & 0xff00, lastWeight.values);
        }
        Some::storeInTurn(even, odd, out + at);
    }
}

/// Sums pixels of a row of 8.8 samples into the pixels of one target row, several source pixels at
/// a time. The row begins at the source pixel `left`. The bits of `always` are set in each.
template <std::size_t Count>
[[gnu::always_inline]] inline void sumColumns(const std::uint16_t* row, const ScaleAxis& columns,
                                              int left, std::uint32_t always, uchar* out)
{
    constexpr int together = Count / channels;
    const int steps = (columns.longest() + together - 1) / together;
    // For rounding, and what truncating the products loses on average; the parts of the sum are
    // added. Divisible by every width, so that all give the same picture.
    Lanes<Count> start;
    start.setAll(
        static_cast<std::uint16_t>((128 + columns.longest() / 2) / spare * spare / together));
    for (const ScaleSpan& span : columns.spans()) {
        Lanes<Count> sum = start;
        const std::uint16_t* in = row + static_cast<std::size_t>(span.first - left) * channels;
        const std::uint16_t* weights = span.weights;
        for (int step = 0; step < steps; ++step) {
            Lanes<Count> samples;
            Lanes<Count> weight;
            samples.load(in);
            weight.load(weights);
            sum.addProduct(samples.values, weight.values);
            in += Count;
            weights += Count;
        }
        const std::uint32_t pixel = sum.foldedToBytes() | always;
        std::memcpy(out, &pixel, sizeof pixel);
        out += sizeof pixel;
    }
}

/// A part of a scaled picture, and the source pixels that it is made of.
struct Job {
    const QImage& piece; ///< of the source
    QPoint origin;       ///< of the piece in the source
    const ScaleAxis& columns;
    const ScaleAxis& rows;
    QImage& result;
    QPoint at; ///< of the part in the result
};

template <std::size_t Count> [[gnu::always_inline]] inline void scale(const Job& job)
{
    const std::size_t samples = static_cast<std::size_t>(job.piece.width()) * channels;
    std::vector<std::uint16_t> sums(samples + std::size_t{2} * spare * channels);
    const uchar* const in = job.piece.constBits();
    const qsizetype stride = job.piece.bytesPerLine();
    const std::uint32_t always = job.result.format() == QImage::Format_RGB32 ? 0xff000000U : 0;
    uchar* out = job.result.scanLine(job.at.y()) + job.at.x() * qsizetype{4};
    for (const ScaleSpan& span : job.rows.spans()) {
        sumRows<Count>(in + (span.first - job.origin.y()) * stride, stride, RowWeights(span),
                       samples, sums.data());
        sumColumns<Count>(sums.data(), job.columns, job.origin.x(), always, out);
        out += job.result.bytesPerLine();
    }
}

void scalePlain(const Job& job) { scale<plainLanes>(job); }

#if defined(__x86_64__) || defined(__i386__)
[[gnu::target("avx2")]] void scaleWide(const Job& job) { scale<wideLanes>(job); }
bool hasWideLanes() { return __builtin_cpu_supports("avx2"); }
#else
constexpr auto scaleWide = scalePlain;
bool hasWideLanes() { return false; }
#endif

void run(const Job& job, Arithmetic arithmetic)
{
    if (arithmetic == Arithmetic::Widest && hasWideLanes())
        scaleWide(job);
    else
        scalePlain(job);
}

bool isTooManyAtOnce(QSize source, QSize target)
{
    return source.width() > target.width() * maxRatio ||
           source.height() > target.height() * maxRatio;
}

} // namespace

QImage scaledPicture(const QImage& source, QSize size, Arithmetic arithmetic)
{
    if (source.isNull() || size.isEmpty())
        return {};
    const QImage::Format format =
        source.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
    QImage picture = source.format() == format ? source : source.convertToFormat(format);
    if (picture.isNull())
        return {};
    if (picture.devicePixelRatio() != 1.0)
        picture.setDevicePixelRatio(1.0);
    if (picture.size() == size)
        return picture;
    if (isTooManyAtOnce(picture.size(), size))
        picture = scaledPicture(picture,
                                QSize(std::min(picture.width(), size.width() * maxRatio),
                                      std::min(picture.height(), size.height() * maxRatio)),
                                arithmetic);

    const ScaleAxis columns(picture.width(), size.width(), {0, size.width()}, channels, spare);
    const ScaleAxis rows(picture.height(), size.height(), {0, size.height()}, 1, spare);
    if (picture.width() < minWidth) // what is added has no weight
        picture = picture.copy(0, 0, minWidth, picture.height());
    QImage result(size, format);
    if (result.isNull() || picture.isNull())
        return {};
    run({picture, {}, columns, rows, result, {}}, arithmetic);
    return result;
}

bool canScaleParts(QSize source, QSize target)
{
    return source.width() >= minWidth && !source.isEmpty() && !target.isEmpty() &&
           source != target && !isTooManyAtOnce(source, target);
}

QRect partMadeOf(const QRect& changed, QSize source, QSize target)
{
    const QRect inside = changed & QRect({}, source);
    if (inside.isEmpty())
        return {};
    const SampleRun across =
        samplesMadeOf({inside.x(), inside.width()}, source.width(), target.width());
    const SampleRun down =
        samplesMadeOf({inside.y(), inside.height()}, source.height(), target.height());
    return {across.first, down.first, across.count, down.count};
}

QRect sourceOfPart(const QRect& part, QSize source, QSize target)
{
    const auto all = [](int first, int count, int from, int to) {
        const SampleRun last = samplesOf(first + count - 1, from, to);
        const int begin = samplesOf(first, from, to).first;
        return SampleRun{begin, last.first + last.count - begin};
    };
    SampleRun across = all(part.x(), part.width(), source.width(), target.width());
    across.count = std::max(across.count, minWidth);
    across.first = std::min(across.first, source.width() - across.count);
    const SampleRun down = all(part.y(), part.height(), source.height(), target.height());
    return {across.first, down.first, across.count, down.count};
}

void scalePart(QImage& scaled, const QRect& part, const QImage& piece, QSize source,
               Arithmetic arithmetic)
{
    const QSize target = scaled.size();
    const QRect from = sourceOfPart(part, source, target);
    if (piece.size() != from.size() || scaled.depth() != 32 || piece.depth() != 32)
        return;
    const ScaleAxis columns(source.width(), target.width(), {part.x(), part.width()}, channels,
                            spare);
    const ScaleAxis rows(source.height(), target.height(), {part.y(), part.height()}, 1, spare);
    run({piece, from.topLeft(), columns, rows, scaled, part.topLeft()}, arithmetic);
}

QSize samplesOfMoving(QSize source, QSize target)
{
    constexpr int part = 3;
    // More across than down: a line that is read at all is read whole, as memory is.
    for (const QSize each : {QSize(4, 3), QSize(3, 2), QSize(2, 2)}) {
        const QSize samples(target.width() * each.width(), target.height() * each.height());
        if (samples.width() < source.width() && samples.height() < source.height() &&
            qint64{samples.width()} * samples.height() * part <=
                qint64{source.width()} * source.height())
            return samples;
    }
    return {};
}

QSize pixelsToDraw(QSize picture, QSize points, double pixelsPerPoint)
{
    const QSize pixels = (QSizeF(points) * pixelsPerPoint).toSize();
    const QSize difference = pixels - picture;
    const bool isRounding = std::abs(difference.width()) < pixelsPerPoint &&
                            std::abs(difference.height()) < pixelsPerPoint;
    return isRounding ? picture : pixels;
}

} // namespace lumbrix
