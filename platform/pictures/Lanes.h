// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Arithmetic on many 16-bit numbers at once. Compilers vectorise the scaler's plain loops only in
// part, which costs a factor of three, so its few operations are spelled out here, for registers of
// any width and any processor.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

namespace lumbrix
{

/// As many numbers as a register holds. The functions are inlined into their user and become the
/// instructions that this user was compiled for.
template <std::size_t Count> struct Lanes {
    template <std::size_t byteCount, class Number> struct VectorOf {
        using Type [[gnu::vector_size(byteCount)]] = Number;
    };
    static constexpr std::size_t byteCount = Count * sizeof(std::uint16_t);
    using Vector = typename VectorOf<byteCount, std::uint16_t>::Type;

    Vector values;

    [[gnu::always_inline]] void setAll(std::uint16_t value) { values = Vector{} + value; }
    [[gnu::always_inline]] void load(const void* from) { std::memcpy(&values, from, byteCount); }
    [[gnu::always_inline]] void store(void* to) const { std::memcpy(to, &values, byteCount); }

    /// Adds the high halves of the products, in the form that each compiler knows as one
    /// instruction.
    [[gnu::always_inline]] void addProduct(const Vector& a, const Vector& b)
    {
#ifdef __clang__
        using Wide = typename VectorOf<byteCount * 2, std::uint32_t>::Type;
        const Wide product = __builtin_convertvector(a, Wide) * __builtin_convertvector(b, Wide);
        const Vector high = __builtin_convertvector(product >> 16, Vector);
#else
        Vector high;
        for (std::size_t i = 0; i < Count; ++i)
            high[i] = static_cast<std::uint16_t>((std::uint32_t{a[i]} * b[i]) >> 16);
#endif
        values += high;
    }

    /// Stores both in turn: a[0], b[0], a[1], b[1] ...
    [[gnu::always_inline]] static void storeInTurn(const Lanes& a, const Lanes& b,
                                                   std::uint16_t* to)
    {
        storeInTurn(a, b, to, std::make_index_sequence<Count>());
    }

    /// The upper eight bits of four sums, in the order of memory: of each of the first four numbers
    /// and those 4, 8 ... further on.
    [[gnu::always_inline]] std::uint32_t foldedToBytes() const
    {
        if constexpr (Count == 4) {
            using Four = typename VectorOf<4, std::uint8_t>::Type;
            const Four bytes = __builtin_convertvector(values >> 8, Four);
            std::uint32_t result = 0;
            std::memcpy(&result, &bytes, sizeof result);
            return result;
        } else {
            Lanes<Count / 2> low;
            Lanes<Count / 2> high;
            low.load(&values);
            high.load(reinterpret_cast<const char*>(&values) + low.byteCount);
            low.values += high.values;
            return low.foldedToBytes();
        }
    }

private:
    template <std::size_t... I>
    [[gnu::always_inline]] static void storeInTurn(const Lanes& a, const Lanes& b,
                                                   std::uint16_t* to, std::index_sequence<I...>)
    {
        const Vector low = __builtin_shufflevector(a.values, b.values, (I / 2 + I % 2 * Count)...);
        const Vector high =
            __builtin_shufflevector(a.values, b.values, ((I + Count) / 2 + I % 2 * Count)...);
        std::memcpy(to, &low, byteCount);
        std::memcpy(to + Count, &high, byteCount);
    }
};

} // namespace lumbrix
