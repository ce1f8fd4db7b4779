// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/pictures/ScaleAxis.h"

#include <algorithm>

namespace lumbrix
{
namespace
{

constexpr std::int64_t fixedOne = 65536;

/// The centre of the target sample, measured from the centre of the first source sample.
std::int64_t centreOf(std::int64_t i, std::int64_t source, std::int64_t target)
{
    return std::clamp<std::int64_t>(((2 * i + 1) * source * fixedOne / target - fixedOne) / 2, 0,
                                    (source - 1) * fixedOne);
}

} // namespace

SampleRun samplesOf(int target, int sourceSize, int targetSize)
{
    const std::int64_t source = sourceSize;
    if (targetSize >= sourceSize) {
        const std::int64_t at = centreOf(target, source, targetSize);
        return {static_cast<int>(at / fixedOne), at % fixedOne > 0 ? 2 : 1};
    }
    const auto first = static_cast<int>(target * source / targetSize);
    return {first, static_cast<int>(((target + 1) * source + targetSize - 1) / targetSize) - first};
}

SampleRun samplesMadeOf(SampleRun source, int sourceSize, int targetSize)
{
    // Both ends of the spans only grow along the axis.
    const auto countWhile = [&](const auto& holds) {
        int low = 0;
        for (int high = targetSize; low < high;) {
            const int middle = low + (high - low) / 2;
            if (holds(samplesOf(middle, sourceSize, targetSize)))
                low = middle + 1;
            else
                high = middle;
        }
        return low;
    };
    const int first =
        countWhile([&](SampleRun run) { return run.first + run.count <= source.first; });
    const int end =
        countWhile([&](SampleRun run) { return run.first < source.first + source.count; });
    return {first, std::max(0, end - first)};
}

ScaleAxis::ScaleAxis(int sourceSize, int targetSize, SampleRun part, std::size_t copies, int spare)
    : m_copies(copies)
{
    // Two more for the partly covered samples at the ends.
    const std::size_t room =
        static_cast<std::size_t>(std::max(sourceSize / targetSize, 1) + 2 + spare) * copies;
    m_weights.resize(room * static_cast<std::size_t>(part.count));
    m_spans.resize(static_cast<std::size_t>(part.count));
    std::uint16_t* weights = m_weights.data();
    int i = part.first;
    for (ScaleSpan& span : m_spans) {
        span.weights = weights;
        m_next = weights;
        if (targetSize < sourceSize)
            average(span, i, sourceSize, targetSize);
        else
            interpolate(span, i, sourceSize, targetSize);
        weights += room;
        ++i;
    }
    // What is rounded away depends on it, in every part alike.
    for (int target = 0; target < targetSize; ++target)
        m_longest = std::max(m_longest, samplesOf(target, sourceSize, targetSize).count);
}

// Positions are counted in 1/target of a source sample, so the edges are exact. The running sum is
// what is rounded, so the weights of a span add up to one.
void ScaleAxis::average(ScaleSpan& span, std::int64_t i, std::int64_t source, std::int64_t target)
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

void ScaleAxis::interpolate(ScaleSpan& span, std::int64_t i, std::int64_t source,
                            std::int64_t target)
{
    const std::int64_t at = centreOf(i, source, target);
    span.first = static_cast<int>(at / fixedOne);
    append(span, fixedOne - at % fixedOne);
    if (at % fixedOne > 0)
        append(span, at % fixedOne);
}

void ScaleAxis::append(ScaleSpan& span, std::int64_t weight)
{
    m_next =
        std::fill_n(m_next, m_copies, static_cast<std::uint16_t>(std::min(weight, fixedOne - 1)));
    ++span.count;
}

} // namespace lumbrix
