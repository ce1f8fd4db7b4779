// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/pictures/PictureScaler.h"

#include "platform/pictures/Lanes.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <vector>

namespace lumbrix
{
namespace
{

// Samples are held as 8.8 fixed point in 16 bits, weights as 0.16: a product's high half is again
// 8.8, and many of them fit one register.
constexpr std::int64_t fixedOne = 65536;
constexpr std::size_t channels = 4;
constexpr int maxRatio = 64; // more than this is done in two steps, or the sums overflow

constexpr std::size_t plainLanes = 8; // what every processor of the last twenty years has
constexpr std::size_t wideLanes = 16;
constexpr int spare = wideLanes / channels; // pixels that may be read together with one
constexpr int minWidth = wideLanes * 2 / channels;

/// The source samples that make up one target sample.
struct Span {
    int first = 0;
    int count = 0;
    const std::uint16_t* weights = nullptr;
};

/// The spans of one axis, and the storage of their weights. Each weight is stored `copies` times,
/// and followed by zeros for what is read but not meant.
class Axis
{
public:
    Axis(int source, int target, std::size_t copies) : m_copies(copies)
    {
        // Two more for the partly covered samples at the ends.
        const std::size_t room =
            static_cast<std::size_t>(std::max(source / target, 1) + 2 + spare) * copies;
        m_weights.resize(room * static_cast<std::size_t>(target));
        m_spans.resize(static_cast<std::size_t>(target));
        std::uint16_t* weights = m_weights.data();
        for (std::size_t i = 0; i < m_spans.size(); ++i, weights += room) {
            Span& span = m_spans[i];
            span.weights = weights;
            m_next = weights;
            if (target < source)
                average(span, static_cast<std::int64_t>(i), source, target);
            else
                interpolate(span, static_cast<std::int64_t>(i), source, target);
            m_longest = std::max(m_longest, span.count);
        }
    }
    const std::vector<Span>& spans() const { return m_spans; }
    int longest() const { return m_longest; } ///< no span is more than one shorter

private:
    /// Positions are counted in 1/target of a source sample, so the edges are exact. The running
    /// sum is what is rounded, so the weights of a span add up to one.
    void average(Span& span, std::int64_t i, std::int64_t source, std::int64_t target)
    {
        const std::int64_t begin = i * source;
        const std::int64_t end = begin + source;
        span.first = static_cast<int>(begin / target);
        std::int64_t given = 0;
        for (std::int64_t at = begin; at < end;) {
            at = std::min((at / target + 1) * target, end);
            const std::int64_t sum = ((at - begin) * fixedOne + source / 2) / source;
            append(span, sum - given);
            given = sum;
        }
    }

    void interpolate(Span& span, std::int64_t i, std::int64_t source, std::int64_t target)
    {
        // The centre of the target sample, measured from the centre of the first source sample.
        const std::int64_t at = std::clamp<std::int64_t>(
            ((2 * i + 1) * source * fixedOne / target - fixedOne) / 2, 0, (source - 1) * fixedOne);
        span.first = static_cast<int>(at / fixedOne);
        append(span, fixedOne - at % fixedOne);
        if (at % fixedOne > 0)
            append(span, at % fixedOne);
    }

    void append(Span& span, std::int64_t weight)
    {
        m_next = std::fill_n(m_next, m_copies,
                             static_cast<std::uint16_t>(std::min(weight, fixedOne - 1)));
        ++span.count;
    }

    const std::size_t m_copies;
    int m_longest = 0;
    std::uint16_t* m_next = nullptr;
    std::vector<Span> m_spans;
    std::vector<std::uint16_t> m_weights;
};

/// A span of rows: the first, those of equal weight in the middle, the last.
struct RowWeights {
    explicit RowWeights(const Span& span)
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
/// a time. The bits of `always` are set in each.
template <std::size_t Count>
[[gnu::always_inline]] inline void sumColumns(const std::uint16_t* row, const Axis& columns,
                                              std::uint32_t always, uchar* out)
{
    constexpr int together = Count / channels;
    const int steps = (columns.longest() + together - 1) / together;
    // For rounding, and what truncating the products loses on average; the parts of the sum are
    // added. Divisible by every width, so that all give the same picture.
    Lanes<Count> start;
    start.setAll(
        static_cast<std::uint16_t>((128 + columns.longest() / 2) / spare * spare / together));
    for (const Span& span : columns.spans()) {
        Lanes<Count> sum = start;
        const std::uint16_t* in = row + static_cast<std::size_t>(span.first) * channels;
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

template <std::size_t Count>
[[gnu::always_inline]] inline void scale(const QImage& source, const Axis& columns,
                                         const Axis& rows, QImage& result)
{
    const std::size_t samples = static_cast<std::size_t>(source.width()) * channels;
    std::vector<std::uint16_t> sums(samples + std::size_t{2} * spare * channels);
    const uchar* const in = source.constBits();
    const qsizetype stride = source.bytesPerLine();
    const std::uint32_t always = result.format() == QImage::Format_RGB32 ? 0xff000000U : 0;
    uchar* out = result.bits();
    for (const Span& span : rows.spans()) {
        sumRows<Count>(in + span.first * stride, stride, RowWeights(span), samples, sums.data());
        sumColumns<Count>(sums.data(), columns, always, out);
        out += result.bytesPerLine();
    }
}

void scalePlain(const QImage& source, const Axis& columns, const Axis& rows, QImage& result)
{
    scale<plainLanes>(source, columns, rows, result);
}

#if defined(__x86_64__) || defined(__i386__)
[[gnu::target("avx2")]] void scaleWide(const QImage& source, const Axis& columns, const Axis& rows,
                                       QImage& result)
{
    scale<wideLanes>(source, columns, rows, result);
}
bool hasWideLanes() { return __builtin_cpu_supports("avx2"); }
#else
constexpr auto scaleWide = scalePlain;
bool hasWideLanes() { return false; }
#endif

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
    if (picture.width() > size.width() * maxRatio || picture.height() > size.height() * maxRatio)
        picture = scaledPicture(picture,
                                QSize(std::min(picture.width(), size.width() * maxRatio),
                                      std::min(picture.height(), size.height() * maxRatio)),
                                arithmetic);

    const Axis columns(picture.width(), size.width(), channels);
    const Axis rows(picture.height(), size.height(), 1);
    if (picture.width() < minWidth) // what is added has no weight
        picture = picture.copy(0, 0, minWidth, picture.height());
    QImage result(size, format);
    if (result.isNull() || picture.isNull())
        return {};
    if (arithmetic == Arithmetic::Widest && hasWideLanes())
        scaleWide(picture, columns, rows, result);
    else
        scalePlain(picture, columns, rows, result);
    return result;
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
