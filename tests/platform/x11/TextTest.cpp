// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "platform/StringLiterals.h"
#include "platform/linux/x11/PropertyText.h"

namespace lumbrix::platform::x11
{
namespace
{

QString utf8(const QByteArray& bytes) { return decodeText(bytes, TextEncoding::Utf8); }

TEST(DecodeText, brokenText_givesValidTextOfLimitedLength)
{
    const QString replacement(QChar::ReplacementCharacter);
    EXPECT_EQ(utf8("gr\xc3\xbc\xc3\x9f"), QString::fromUtf8("gr\xc3\xbc\xc3\x9f"));
    EXPECT_EQ(utf8("a\xff"
                   "b"),
              u"a"_s + replacement + u"b"_s);
    EXPECT_EQ(utf8(QByteArray("title\0rest", 10)), u"title"_s);
    EXPECT_EQ(utf8("cut\xe2\x82"), u"cut"_s); // by the fetched length
    EXPECT_TRUE(utf8(QByteArray(8, '\x80')).contains(replacement));

    EXPECT_EQ(utf8(QByteArray(100000, 'x')).size(), maxTitleLength);
    // A character of two units on the limit is dropped, not split.
    const QString pairs = utf8(QByteArray("x") + QByteArray("\xf0\x9f\x98\x80").repeated(4000));
    EXPECT_EQ(pairs.size(), maxTitleLength - 1);
    EXPECT_TRUE(pairs.isValidUtf16());

    EXPECT_EQ(decodeText("caf\xe9", TextEncoding::Latin1), QString::fromUtf8("caf\xc3\xa9"));
    EXPECT_EQ(decodeText("\x1b%G\xe2\x82\xac\x1b%@ caf\xe9\x1b-", TextEncoding::CompoundText),
              QString::fromUtf8("\xe2\x82\xac caf\xc3\xa9"));
}

} // namespace
} // namespace lumbrix::platform::x11
