// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which samples of a picture make up each sample of the scaled one, along one axis.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace lumbrix
{

/// A run of samples: [first, first + count).
struct SampleRun {
    int first = 0;
    int count = 0;
};

/// The source samples that make up one target sample. Weights are 0.16 fixed point.
struct ScaleSpan {
    int first = 0;
    int count = 0;
    const std::uint16_t* weights = nullptr;
};

/// The source samples of one target sample, as of every part of an axis.
SampleRun samplesOf(int target, int sourceSize, int targetSize);
/// The target samples that some of these source samples are part of.
SampleRun samplesMadeOf(SampleRun source, int sourceSize, int targetSize);

/// The spans of one axis, or of a part of it, and the storage of their weights. Each weight is
/// stored `copies` times, and followed by zeros for `spare` samples that are read but not meant.
class ScaleAxis
{
public:
    ScaleAxis(int sourceSize, int targetSize, SampleRun part, std::size_t copies, int spare);

    const std::vector<ScaleSpan>& spans() const { return m_spans; }
    /// The longest of the whole axis; no span is more than one shorter.
    int longest() const { return m_longest; }

private:
    void average(ScaleSpan& span, std::int64_t i, std::int64_t source, std::int64_t target);
    void interpolate(ScaleSpan& span, std::int64_t i, std::int64_t source, std::int64_t target);
    void append(ScaleSpan& span, std::int64_t weight);

    const std::size_t m_copies;
    int m_longest = 0;
    std::uint16_t* m_next = nullptr;
    std::vector<ScaleSpan> m_spans;
    std::vector<std::uint16_t> m_weights;
};

} // namespace lumbrix
