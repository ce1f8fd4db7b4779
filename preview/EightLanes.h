// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Eight 16-bit sums that are kept in one register. Compilers vectorise the plain loops only in
// part, which costs a factor of three in the scaler, so the two operations it needs are spelled
// out.
#pragma once

#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace lumbrix
{

#ifdef __SSE2__

class EightLanes
{
public:
    static EightLanes all(std::uint16_t value)
    {
        return EightLanes(_mm_set1_epi16(static_cast<short>(value)));
    }
    static EightLanes load(const std::uint16_t* from)
    {
        return EightLanes(_mm_loadu_si128(reinterpret_cast<const __m128i*>(from)));
    }
    void store(std::uint16_t* to) const
    {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to), m_lanes);
    }
    /// Adds the high halves of the products.
    void addProduct(EightLanes a, EightLanes b)
    {
        m_lanes = _mm_add_epi16(m_lanes, _mm_mulhi_epu16(a.m_lanes, b.m_lanes));
    }
    /// Sixteen bytes as two times eight numbers, each byte times 256.
    static void widen(const unsigned char* from, EightLanes& low, EightLanes& high)
    {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
        low.m_lanes = _mm_unpacklo_epi8(_mm_setzero_si128(), bytes);
        high.m_lanes = _mm_unpackhi_epi8(_mm_setzero_si128(), bytes);
    }
    /// Each of the four sums of a lane and the lane four further on, as a byte: its upper eight
    /// bits.
    std::uint32_t foldToBytes() const
    {
        const __m128i sum = _mm_add_epi16(m_lanes, _mm_srli_si128(m_lanes, 8));
        const __m128i upper = _mm_srli_epi16(sum, 8);
        return static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(upper, upper)));
    }

    EightLanes() : m_lanes(_mm_setzero_si128()) {}

private:
    explicit EightLanes(__m128i lanes) : m_lanes(lanes) {}
    __m128i m_lanes;
};

#else

class EightLanes
{
public:
    static EightLanes all(std::uint16_t value) { return EightLanes(Lanes{} + value); }
    static EightLanes load(const std::uint16_t* from)
    {
        EightLanes result;
        std::memcpy(&result.m_lanes, from, sizeof(Lanes));
        return result;
    }
    void store(std::uint16_t* to) const { std::memcpy(to, &m_lanes, sizeof(Lanes)); }
    /// Adds the high halves of the products.
    void addProduct(EightLanes a, EightLanes b)
    {
        const Wide product =
            __builtin_convertvector(a.m_lanes, Wide) * __builtin_convertvector(b.m_lanes, Wide);
        m_lanes += __builtin_convertvector(product >> 16, Lanes);
    }
    /// Sixteen bytes as two times eight numbers, each byte times 256.
    static void widen(const unsigned char* from, EightLanes& low, EightLanes& high)
    {
        Bytes bytes{};
        std::memcpy(&bytes, from, sizeof bytes);
        low.m_lanes = __builtin_convertvector(bytes, Lanes) << 8;
        std::memcpy(&bytes, from + sizeof bytes, sizeof bytes);
        high.m_lanes = __builtin_convertvector(bytes, Lanes) << 8;
    }
    /// Each of the four sums of a lane and the lane four further on, as a byte: its upper eight
    /// bits, the first lane's in the byte that comes first in memory.
    std::uint32_t foldToBytes() const
    {
        unsigned char bytes[4];
        for (int i = 0; i < 4; ++i)
            bytes[i] = static_cast<unsigned char>(
                static_cast<std::uint16_t>(m_lanes[i] + m_lanes[i + 4]) >> 8);
        std::uint32_t result = 0;
        std::memcpy(&result, bytes, sizeof result);
        return result;
    }

    EightLanes() = default;

private:
    using Bytes [[gnu::vector_size(8)]] = std::uint8_t;
    using Lanes [[gnu::vector_size(16)]] = std::uint16_t;
    using Wide [[gnu::vector_size(32)]] = std::uint32_t;
    explicit EightLanes(Lanes lanes) : m_lanes(lanes) {}
    Lanes m_lanes{};
};

#endif

} // namespace lumbrix
