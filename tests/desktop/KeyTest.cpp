// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Keys that Lumbrix takes from all other programs, and gives back.
#include "DesktopTest.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <xcb/xtest.h>

namespace lumbrix::privatedesk
{
namespace
{

constexpr std::uint8_t superKey = 133;
constexpr std::uint8_t digitKey = 11;  // the digit 2
constexpr std::uint8_t fourthKey = 13; // the digit 4

} // namespace

class KeyTest : public DesktopTest
{
protected:
    void fake(std::uint8_t type, std::uint8_t keycode)
    {
        xcb_test_fake_input(display().connection(), type, keycode, XCB_CURRENT_TIME,
                            display().root(), 0, 0, 0);
        xcb_flush(display().connection());
    }
    void typeWithSuper(std::uint8_t keycode)
    {
        fake(XCB_KEY_PRESS, superKey);
        fake(XCB_KEY_PRESS, keycode);
        fake(XCB_KEY_RELEASE, keycode);
        fake(XCB_KEY_RELEASE, superKey);
    }
    /// Whether some program has this key with Super: nobody else can have it then.
    bool isTaken(std::uint8_t keycode)
    {
        xcb_connection_t* c = display().connection();
        xcb_generic_error_t* error = xcb_request_check(
            c, xcb_grab_key_checked(c, 0, display().root(), XCB_MOD_MASK_4, keycode,
                                    XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
        if (!error)
            xcb_ungrab_key(c, keycode, display().root(), XCB_MOD_MASK_4);
        std::free(error);
        return error != nullptr;
    }
    /// Hovers an application of four windows until the keys of its previews are taken. The look at
    /// the fourth may itself keep it from Lumbrix; then another row tries again.
    void hoverForKeys(const Application& application)
    {
        for (int i = 0; i < 3; ++i) {
            hover(application);
            ASSERT_TRUE(shows(application));
            if (waitUntil([&] { return isTaken(fourthKey); }, 1000))
                return;
            desk().park();
            ASSERT_TRUE(showsNothing());
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
    Application& alpha = launch(u"alpha"_qs, 4);
    Application& beta = launch(u"beta"_qs, 1);
    hoverForKeys(alpha);
    const QByteArray title = display().previews().at(1).title;
    const auto second =
        std::find_if(alpha.windows().begin(), alpha.windows().end(),
                     [&](const AppWindow& window) { return window.title == title; });
    ASSERT_NE(second, alpha.windows().end());
    typeWithSuper(digitKey);
    EXPECT_TRUE(waitUntil([&] { return display().activeWindow() == second->id; }));
    EXPECT_GT(count(beta.keys(), superKey), 0) << "the program had no focus";
    EXPECT_EQ(count(beta.keys(), digitKey), 0);
    EXPECT_EQ(count(alpha.keys(), digitKey), 0);

    desk().park();
    EXPECT_TRUE(showsNothing());
    EXPECT_TRUE(waitUntil([&] { return !isTaken(digitKey) && !isTaken(fourthKey); }));
    typeWithSuper(digitKey);
    EXPECT_TRUE(waitUntil([&] { return count(alpha.keys(), digitKey) == 2; }));
}

TEST_P(KeyTest, lumbrix_endedInAnyWay_givesTheKeysBack)
{
    const Application& alpha = launch(u"alpha"_qs, 4);
    for (const int signal : {SIGKILL, SIGTERM}) {
        hoverForKeys(alpha);
        desk().lumbrix().signal(signal);
        desk().lumbrix().waitForExit(patience(2000));
        EXPECT_TRUE(waitUntil([&] { return !isTaken(digitKey) && !isTaken(fourthKey); }));
        desk().park();
        desk().startLumbrix();
    }
}

} // namespace lumbrix::privatedesk
