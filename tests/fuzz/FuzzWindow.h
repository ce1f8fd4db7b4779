// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A window with properties that may say anything.
#pragma once

#include <array>
#include <vector>

#include "platform/linux/x11/WindowProperties.h"
#include "tests/fuzz/FuzzInput.h"

namespace lumbrix::test
{

/// Numbers that fit into a byte.
inline const platform::x11::Atoms& fuzzAtoms()
{
    static const platform::x11::Atoms atoms([] {
        platform::x11::Atoms::Numbers numbers{};
        for (std::size_t i = 0; i < numbers.size(); ++i)
            numbers[i] = static_cast<xcb_atom_t>(i + 1);
        return numbers;
    }());
    return atoms;
}

/// A property as a server answers with it.
class FuzzProperty
{
public:
    explicit FuzzProperty(FuzzInput& input)
    {
        const auto format = std::array{8, 32, 16, 0}[static_cast<std::size_t>(input.below(4))];
        const auto type = input.number<std::uint8_t>();
        const QByteArray bytes = input.bytes();
        m_memory.resize(sizeof(xcb_get_property_reply_t) / 4 +
                        static_cast<std::size_t>(bytes.size()) / 4 + 1);
        auto* reply = reinterpret_cast<xcb_get_property_reply_t*>(m_memory.data());
        reply->format = static_cast<std::uint8_t>(format);
        reply->type = type;
        reply->value_len =
            format == 0 ? 0 : static_cast<std::uint32_t>(bytes.size() / (format / 8));
        std::copy(bytes.begin(), bytes.end(), reinterpret_cast<char*>(reply + 1));
    }
    platform::x11::PropertyValue value() const
    {
        return {reinterpret_cast<const xcb_get_property_reply_t*>(m_memory.data())};
    }

private:
    std::vector<std::uint32_t> m_memory;
};

inline QRect fuzzRect(FuzzInput& input)
{
    const auto x = input.number<std::int16_t>();
    const auto y = input.number<std::int16_t>();
    const auto width = input.number<std::uint16_t>();
    return {x, y, width, input.number<std::uint16_t>()};
}

inline platform::x11::TrackedWindow fuzzWindow(FuzzInput& input, xcb_window_t id)
{
    using namespace platform::x11;
    WindowRecord record;
    record.id = record.frame = id;
    record.frameRect = fuzzRect(input);
    if (input.below(2) == 1) {
        record.frame = id + 1;
        record.clientRect = fuzzRect(input);
    }
    const auto rows = propertyRows();
    for (int i = input.below(16); i > 0; --i) {
        const auto row = static_cast<std::size_t>(input.below(static_cast<int>(rows.size())));
        rows[row].apply(record, FuzzProperty(input).value(), fuzzAtoms());
    }
    return snapshotOf(record, {input.below(2) == 1, input.below(4)});
}

} // namespace lumbrix::test
