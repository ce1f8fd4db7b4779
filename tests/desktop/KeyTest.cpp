// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Keys that Lumbrix takes from all other programs, and gives back.
#include "DesktopTest.h"

#include <algorithm>
#include <csignal>

#include "Keys.h"
#include "platform/StringLiterals.h"

namespace lumbrix::privatedesk
{
class KeyTest : public DesktopTest
{
protected:
    /// Whether some program has this key with Super: nobody else can have it then.
    bool isTaken(std::uint8_t keycode)
    {
        if (!display().takeKey(keycode, XCB_MOD_MASK_4))
            return true;
        display().giveKeyBack(keycode, XCB_MOD_MASK_4);
        return false;
    }
    /// Hovers an application of four windows until the keys of its previews are taken. The look at
    /// the fourth may itself keep it from Lumbrix; then another row tries again.
    void hoverForKeys(const Application& application)
    {
        for (int i = 0; i < 3; ++i) {
            ASSERT_TRUE(hoverShows(application));
            if (waitUntil([&] { return isTaken(fourKey); }, 1000))
                return;
            ASSERT_TRUE(parkShowsNothing());
        }
        FAIL() << "the keys of the previews are not taken";
    }
    static std::ptrdiff_t count(const std::vector<int>& keys, int key)
    {
        return std::count(keys.begin(), keys.end(), key);
    }
};

INSTANTIATE_TEST_SUITE_P(, KeyTest, testing::Values(plank(), tint2()), deskName);

TEST_P(KeyTest, superAndDigit_raisesThatWindowUnseenByTheFocusedProgram)
{
    Application& alpha = launch(u"alpha"_s, 4);
    Application& beta = launch(u"beta"_s, 1);
    hoverForKeys(alpha);
    const QByteArray title = display().previews().at(1).title;
    const auto second =
        std::find_if(alpha.windows().begin(), alpha.windows().end(),
                     [&](const AppWindow& window) { return window.title == title; });
    ASSERT_NE(second, alpha.windows().end());
    display().type({superKey, twoKey});
    EXPECT_TRUE(waitUntil([&] { return display().activeWindow() == second->id; }));
    EXPECT_GT(count(beta.keys(), superKey), 0) << "the program had no focus";
    EXPECT_EQ(count(beta.keys(), twoKey), 0);
    EXPECT_EQ(count(alpha.keys(), twoKey), 0);

    EXPECT_TRUE(parkShowsNothing());
    EXPECT_TRUE(waitUntil([&] { return !isTaken(twoKey) && !isTaken(fourKey); }));
    display().type({superKey, twoKey});
    EXPECT_TRUE(waitUntil([&] { return count(alpha.keys(), twoKey) == 2; }));
}

TEST_P(KeyTest, lumbrix_endedInAnyWay_givesTheKeysBack_andLeavesNothingBehind)
{
    const Application& alpha = launch(u"alpha"_s, 4);
    for (const int signal : {SIGKILL, SIGTERM}) {
        hoverForKeys(alpha);
        desk().lumbrix().signal(signal);
        EXPECT_EQ(desk().lumbrix().waitForExit(patience(2000)), signal == SIGTERM ? 0 : SIGKILL);
        EXPECT_TRUE(showsNothing(100));
        EXPECT_EQ(desk().complaints().toStdString(), "");
        EXPECT_TRUE(waitUntil([&] { return !isTaken(twoKey) && !isTaken(fourKey); }));
        desk().park();
        desk().startLumbrix();
    }
}

} // namespace lumbrix::privatedesk
