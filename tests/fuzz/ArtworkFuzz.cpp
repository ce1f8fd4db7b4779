// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Pictures that a player names. The first byte tells whether the rest is an address or a picture.

#include "platform/StringLiterals.h"
#include "platform/linux/media/Artwork.h"
#include "tests/fuzz/FuzzInput.h"

using namespace lumbrix;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    test::FuzzInput input(data, size);
    const bool isAddress = input.below(2) == 0;
    const QByteArray bytes = input.rest();
    const QImage picture = platform::loadArtwork(
        isAddress ? QString::fromUtf8(bytes)
                  : u"data:;base64,"_s + QString::fromLatin1(bytes.toBase64()));
    test::require(picture.width() <= 640 && picture.height() <= 640, "a preview has room for it");
    return 0;
}
