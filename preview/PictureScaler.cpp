// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/PictureScaler.h"

#include "preview/EightLanes.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace lumbrix
{
namespace
{

// Samples are held as 8.8 fixed point in 16 bits, weights as 0.16: a product's high half is again
// 8.8, and eight of them fit one register.
constexpr std::int64_t One = 65536;
constexpr std::size_t Channels = 4;
constexpr std::size_t Block = 32; // samples summed at a time, so that the sums stay in registers
constexpr int MaxRatio = 64;      // more than this is done in two steps, or the rounding adds up

/// The source samples that make up one target sample.
struct Span {
    int first = 0;
    int count = 0;
    std::uint16_t bias = 0; ///< what truncating each product loses on average
    const std::uint16_t* weights = nullptr;
};

/// The spans of one axis, and the storage of their weights. Each weight is stored `copies` times.
class Axis
{
public:
    Axis(int source, int target, std::size_t copies) : m_copies(copies)
    {
        // One more for a partly covered sample at each end, and one so that pairs can be read.
        const std::size_t room =
            static_cast<std::size_t>(std::max(source / target, 1) + 3) * copies;
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
            span.bias = static_cast<std::uint16_t>(span.count / 2);
        }
    }
    const std::vector<Span>& spans() const { return m_spans; }

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
            const std::int64_t sum = ((at - begin) * One + source / 2) / source;
            append(span, sum - given);
            given = sum;
        }
    }

    void interpolate(Span& span, std::int64_t i, std::int64_t source, std::int64_t target)
    {
        // The centre of the target sample, measured from the centre of the first source sample.
        const std::int64_t at = std::clamp<std::int64_t>(
            ((2 * i + 1) * source * One / target - One) / 2, 0, (source - 1) * One);
        span.first = static_cast<int>(at / One);
        append(span, One - at % One);
        if (at % One > 0)
            append(span, at % One);
    }

    void append(Span& span, std::int64_t weight)
    {
        m_next =
            std::fill_n(m_next, m_copies, static_cast<std::uint16_t>(std::min(weight, One - 1)));
        ++span.count;
    }

    const std::size_t m_copies;
    std::uint16_t* m_next = nullptr;
    std::vector<Span> m_spans;
    std::vector<std::uint16_t> m_weights;
};

/// Sums source rows into one row of 8.8 samples.
void sumRows(const uchar* source, qsizetype stride, const Span& span, std::size_t samples,
             std::uint16_t* out)
{
    const uchar* const rows = source + span.first * stride;
    std::size_t at = 0;
    for (; at + Block <= samples; at += Block) {
        EightLanes a = EightLanes::all(span.bias);
        EightLanes b = a;
        EightLanes c = a;
        EightLanes d = a;
        const uchar* in = rows + at;
        for (int row = 0; row < span.count; ++row, in += stride) {
            const EightLanes weight = EightLanes::all(span.weights[row]);
            EightLanes low;
            EightLanes high;
            EightLanes::widen(in, low, high);
            a.addProduct(low, weight);
            b.addProduct(high, weight);
            EightLanes::widen(in + 16, low, high);
            c.addProduct(low, weight);
            d.addProduct(high, weight);
        }
        a.store(out + at);
        b.store(out + at + 8);
        c.store(out + at + 16);
        d.store(out + at + 24);
    }
    for (; at < samples; ++at) {
        std::uint32_t sum = span.bias;
        for (int row = 0; row < span.count; ++row)
            sum += (static_cast<std::uint32_t>(rows[row * stride + static_cast<qsizetype>(at)]) *
                    span.weights[row]) >>
                   8;
        out[at] = static_cast<std::uint16_t>(sum);
    }
}

/// Sums pixels of a row of 8.8 samples into the pixels of one target row, two source pixels at a
/// time; the row has a pixel to spare at its end, and so have the weights, which are zero there.
void sumColumns(const std::uint16_t* row, const std::vector<Span>& spans, uchar* out)
{
    constexpr std::uint16_t half = 128 / 2; // for rounding; the two halves of the sum are added
    for (const Span& span : spans) {
        EightLanes sum = EightLanes::all(static_cast<std::uint16_t>(half + span.bias / 2));
        const std::uint16_t* in = row + static_cast<std::size_t>(span.first) * Channels;
        const std::uint16_t* weights = span.weights;
        for (int pixel = 0; pixel < span.count; pixel += 2) {
            sum.addProduct(EightLanes::load(in), EightLanes::load(weights));
            in += 2 * Channels;
            weights += 2 * Channels;
        }
        const std::uint32_t pixel = sum.foldToBytes();
        std::memcpy(out, &pixel, sizeof pixel);
        out += sizeof pixel;
    }
}

} // namespace

QImage scaledPicture(const QImage& source, QSize size)
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
    if (picture.width() > size.width() * MaxRatio || picture.height() > size.height() * MaxRatio)
        picture =
            scaledPicture(picture, QSize(std::min(picture.width(), size.width() * MaxRatio),
                                         std::min(picture.height(), size.height() * MaxRatio)));

    QImage result(size, format);
    if (result.isNull() || picture.isNull())
        return {};
    const Axis columns(picture.width(), size.width(), Channels);
    const Axis rows(picture.height(), size.height(), 1);
    const std::size_t samples = static_cast<std::size_t>(picture.width()) * Channels;
    std::vector<std::uint16_t> sums(samples + Channels);
    const uchar* in = picture.constBits();
    uchar* out = result.bits();
    for (const Span& row : rows.spans()) {
        sumRows(in, picture.bytesPerLine(), row, samples, sums.data());
        sumColumns(sums.data(), columns.spans(), out);
        out += result.bytesPerLine();
    }
    return result;
}

} // namespace lumbrix
