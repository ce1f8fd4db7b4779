// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/pictures/PictureMemory.h"

#include <cstdlib>
#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace lumbrix::platform
{

#ifdef __GLIBC__

void keepPicturesApart()
{
    // Half of what a picture in a preview of the usual size takes. The library's own threshold is
    // above that, and rises up to 32 MiB with what is freed.
    constexpr int pagesOfTheirOwn = 64 * 1024;
    mallopt(M_MMAP_THRESHOLD, pagesOfTheirOwn);
}

void giveBackFreedMemory() { malloc_trim(0); }

#else

void keepPicturesApart() {}
void giveBackFreedMemory() {}

#endif

} // namespace lumbrix::platform
