// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/Modifiers.h"
#include "platform/InputState.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{
namespace
{

using Modifiers = DesktopFixture;

TEST_F(Modifiers, key_isHeldOnlyAsTheOneOfItsIndex)
{
    using namespace platform::ModifierFlag;
    constexpr std::uint32_t all = option | control | shift | command;
    const struct {
        int index;
        std::uint32_t flag;
    } cases[] = {{1, option}, {2, control}, {3, shift}, {0, command}, {4, command}, {-1, command}};
    for (const auto& [index, flag] : cases) {
        desk.setModifiers(flag);
        EXPECT_TRUE(isModifierHeld(desk.inputState(), index)) << index;
        desk.setModifiers(all & ~flag);
        EXPECT_FALSE(isModifierHeld(desk.inputState(), index)) << index;
    }
}

} // namespace
} // namespace lumbrix::test
