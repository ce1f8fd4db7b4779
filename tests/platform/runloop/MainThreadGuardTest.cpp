// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "platform/MainThreadGuard.h"

namespace lumbrix::platform
{
namespace
{

TEST(MainThreadGuardTest, ownerGone_callThatWasMadeBefore_doesNothing)
{
    int sum = 0;
    auto guard = std::make_unique<MainThreadGuard>();
    const auto add = guard->ifAlive([&sum](int value) { sum += value; });
    add(1);
    guard.reset();
    add(2);
    EXPECT_EQ(sum, 1);
}

} // namespace
} // namespace lumbrix::platform
