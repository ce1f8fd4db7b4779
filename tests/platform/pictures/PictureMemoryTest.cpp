// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/pictures/PictureMemory.h"

#include <QtGui/QImage>

#include <memory>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#ifdef __GLIBC__
#include <malloc.h>

namespace lumbrix::platform
{

// What stays between them keeps the room of pictures, if they lie in one place.
TEST(PictureMemoryTest, pictures_freedByAThread_leaveNoRoomBehind)
{
    keepPicturesApart();
    std::vector<std::unique_ptr<char[]>> between;
    const auto before = mallinfo2().fordblks;
    std::thread([&between] {
        std::vector<QImage> pictures;
        for (int i = 0; i < 50; ++i) {
            pictures.emplace_back(223, 138, QImage::Format_RGB32);
            between.push_back(std::make_unique<char[]>(100));
        }
    }).join();
    EXPECT_LT(mallinfo2().fordblks, before + 1024 * 1024);
}

} // namespace lumbrix::platform
#endif
