// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/PropertyText.h"

#include <algorithm>

namespace lumbrix::platform::x11
{
namespace
{

QByteArrayView untilNul(QByteArrayView bytes)
{
    const qsizetype end = std::find(bytes.begin(), bytes.end(), '\0') - bytes.begin();
    return bytes.first(end);
}

/// The length of `bytes` without an incomplete sequence at the end.
QByteArrayView withoutCutOffEnd(QByteArrayView bytes)
{
    for (qsizetype back = 1; back <= std::min<qsizetype>(3, bytes.size()); ++back) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
        if (byte < 0x80)
            break;
        if (byte >= 0xc2) {
            const qsizetype needed = byte >= 0xf0 ? 4 : byte >= 0xe0 ? 3 : 2;
            return needed > back ? bytes.chopped(back) : bytes;
        }
    }
    return bytes;
}

/// Best effort: supports Latin 1 and UTF-8 segments, which are the ones in use; other encodings are
/// read as Latin 1.
QString decodeCompoundText(QByteArrayView bytes)
{
    constexpr char escapeByte = '\x1b';
    QString text;
    bool utf8 = false;
    while (!bytes.isEmpty()) {
        const qsizetype segment = std::find(bytes.begin(), bytes.end(), escapeByte) - bytes.begin();
        const QByteArrayView plain = bytes.first(segment);
        text += utf8 ? QString::fromUtf8(plain) : QString::fromLatin1(plain);
        bytes = bytes.sliced(segment);
        if (bytes.isEmpty())
            break;
        // ESC, intermediate bytes 0x20 to 0x2f, one final byte.
        qsizetype end = 1;
        while (end < bytes.size() && bytes[end] >= 0x20 && bytes[end] <= 0x2f)
            ++end;
        if (end < bytes.size())
            ++end;
        const QByteArrayView sequence = bytes.first(end);
        if (sequence == QByteArrayView("\x1b%G"))
            utf8 = true;
        else if (sequence == QByteArrayView("\x1b%@"))
            utf8 = false;
        bytes = bytes.sliced(end);
    }
    return text;
}

} // namespace

QString decodeText(QByteArrayView bytes, TextEncoding encoding)
{
    bytes = untilNul(bytes);
    QString text;
    switch (encoding) {
    case TextEncoding::Utf8:
        text = QString::fromUtf8(withoutCutOffEnd(bytes));
        break;
    case TextEncoding::Latin1:
        text = QString::fromLatin1(bytes);
        break;
    case TextEncoding::CompoundText:
        text = decodeCompoundText(bytes);
        break;
    }
    if (text.size() > maxTitleLength) {
        const bool splitsPair = text.at(maxTitleLength - 1).isHighSurrogate();
        text.truncate(maxTitleLength - (splitsPair ? 1 : 0));
    }
    return text;
}

} // namespace lumbrix::platform::x11
