// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a fuzz target makes of its bytes, and how it says that something is wrong.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace lumbrix::test
{

/// Ends the program, so that the fuzzer keeps the input.
inline void require(bool isSo, const char* what)
{
    if (isSo)
        return;
    std::fprintf(stderr, "not so: %s\n", what);
    std::abort();
}

/// Takes values off the front of the bytes; beyond their end all is zero and empty. Not more than
/// one in the arguments of a call, whose order differs among compilers.
class FuzzInput
{
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : m_bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))
    {
    }

    bool atEnd() const { return m_bytes.isEmpty(); }
    template <class Number> Number number()
    {
        Number number{};
        const QByteArray bytes = take(sizeof number);
        std::memcpy(&number, bytes.constData(), static_cast<std::size_t>(bytes.size()));
        return number;
    }
    /// 0 and more, less than `count`, which is 256 at most.
    int below(int count) { return number<std::uint8_t>() % count; }
    /// As many as the next byte says.
    QByteArray bytes() { return take(number<std::uint8_t>()); }
    QString text() { return QString::fromUtf8(bytes()); }
    QByteArray rest() { return take(static_cast<std::size_t>(m_bytes.size())); }

private:
    QByteArray take(std::size_t count)
    {
        const QByteArray taken = m_bytes.left(static_cast<qsizetype>(count));
        m_bytes.remove(0, taken.size());
        return taken;
    }

    QByteArray m_bytes;
};

} // namespace lumbrix::test
