// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Descriptions of icon themes.

#include "platform/linux/applications/IconThemeIndex.h"
#include "tests/fuzz/FuzzInput.h"

using namespace lumbrix;
using test::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto index = platform::IconThemeIndex::parse(test::FuzzInput(data, size).rest());
    require(index.parents.size() <= 32 && index.directories.size() <= 1000, "there is an end");
    for (const auto& directory : index.directories) {
        require(!directory.path.contains(QLatin1String("..")), "it stays in its folder");
        require(directory.distanceTo(1) >= 0 && directory.distanceTo(512) >= 0, "no better than 0");
    }
    return 0;
}
