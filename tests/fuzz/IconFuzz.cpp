// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Icons. The first byte tells whether the rest is a drawing.

#include "platform/linux/applications/IconFile.h"
#include "tests/fuzz/FuzzInput.h"

using namespace lumbrix;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    test::FuzzInput input(data, size);
    const bool isDrawing = input.below(2) == 0;
    const QImage icon = platform::iconIn(input.rest(), isDrawing, 48);
    test::require(icon.isNull() || icon.size() == QSize(48, 48), "an icon has its size");
    return 0;
}
