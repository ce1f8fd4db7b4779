// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Window properties: titles, classes, states, places of icons, struts.

#include "platform/linux/docks/PlankWindows.h"
#include "tests/fuzz/FuzzWindow.h"

using namespace lumbrix;
using test::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    test::FuzzInput input(data, size);
    const auto window = test::fuzzWindow(input, 2);
    for (const QString& text : {window.title, window.className, window.classInstance})
        require(text.isValidUtf16() && text.size() <= 4096, "a text can be shown");
    require(!window.pid || *window.pid > 0, "a process has a number");
    const int scale = platform::plankScaleOf(window);
    require(scale >= 1 && scale <= 16, "a scale makes sense");
    const QMargins strut = window.strut.value_or(QMargins());
    require(strut.left() >= 0 && strut.left() <= 0x7fff, "a strut makes sense");
    return 0;
}
