// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The pointer, the buttons, the keys and the screens.

#include "X11Desk.h"

#include <xcb/xtest.h>

#include <cmath>

#include "platform/linux/x11/PointSpace.h"
#include "platform/linux/x11/PointerTrail.h"
#include "platform/linux/x11/ScreenWatch.h"

namespace lumbrix::platform::x11
{
namespace
{

const SessionOptions plain{{1280, 1024}, WindowManager::Xfwm4, false};

void warp(Display& display, QPoint position)
{
    xcb_warp_pointer(display.connection(), XCB_NONE, display.root(), 0, 0, 0, 0,
                     static_cast<std::int16_t>(position.x()),
                     static_cast<std::int16_t>(position.y()));
    xcb_flush(display.connection());
}

/// Of the reports that a mouse makes on a way, what the last one says of the stop.
struct Paces {
    PointerTrail trail;
    double ms = -200;
    std::optional<QPoint> report(double x, double after = 8)
    {
        ms += after;
        // The server's clock turns over on the way.
        trail.moved({static_cast<int>(std::lround(x)), 5},
                    static_cast<xcb_timestamp_t>(static_cast<std::int32_t>(ms)), ms / 1000, 1);
        return trail.stop();
    }
};

TEST(PointerTrailTest, stop_isForeseenOfAHandThatArrives_andOfNoneThatPasses)
{
    for (const double speed : {0.8, 2.0, 4.0}) { // pixels a millisecond
        Paces paces;
        EXPECT_EQ(paces.report(0), QPoint(0, 5)) << "it is there";
        // Speeding up, and with reports that come late now and then.
        for (int i = 1; i < 60; ++i) {
            const double after = i % 10 == 0 ? 19 : i % 10 == 1 ? 1 : i % 10 == 2 ? 4 : 8;
            EXPECT_EQ(paces.report(speed * std::min(i, 5) * i / 5 * 8, after), std::nullopt)
                << speed << " at " << i;
        }
    }

    // As hands move, in 0.4 s.
    const auto smooth = [](double part) {
        return part * part * part * (10 - 15 * part + 6 * part * part);
    };
    Paces hand;
    hand.report(0);
    std::optional<double> foreseenAt;
    for (double t = 8; t <= 400; t += 8) {
        const auto stop = hand.report(700 * smooth(t / 400));
        if (stop && t > 100 && !foreseenAt) {
            foreseenAt = t;
            EXPECT_NEAR(stop->x(), 700, 40);
        }
    }
    EXPECT_LT(foreseenAt.value_or(400), 340);
    EXPECT_EQ(hand.report(900, 500), QPoint(900, 5)) << "put there";
    EXPECT_EQ(hand.report(940), std::nullopt) << "and off again";

    Paces far; // across a large screen, so fast at the end too
    for (double t = 0; t <= 400; t += 8)
        far.report(2300 * smooth(t / 400));
    EXPECT_EQ(far.report(2345), QPoint(2345, 5)) << "put there";

    Paces slow;
    for (int i = 0; i < 20; ++i)
        slow.report(1.2 * i);
    EXPECT_NEAR(slow.trail.stop().value_or(QPoint()).x(), 1.2 * 19 + 12, 3) << "it creeps";
    const auto places = slow.trail.places(slow.ms / 1000 + 0.1);
    EXPECT_EQ(places.front().at, QPoint(23, 5));
    EXPECT_NEAR(places.front().ago, 0.1, 0.001);
    EXPECT_EQ(places.back().at, QPoint(0, 5));
}

TEST(Pointer, movedOrWarped_isNoticedOnceAndNotWhileStill)
{
    X11Desk desk(plain);
    Display& display = desk.display();
    RawWindow dock(desk.session(), {0, 980, 1280, 44});
    dock.setType("_NET_WM_WINDOW_TYPE_DOCK");
    dock.map();
    const auto tracked =
        desk.waitForWindow(dock.id(), [](const TrackedWindow& w) { return w.isMapped; });
    const auto isAt = [&](QPoint position, xcb_window_t child) {
        return desk.waitFor(
            [&] { return desk.recorder().heard().position == std::pair(position, child); });
    };
    display.moveTo({600, 500});
    EXPECT_TRUE(isAt({600, 500}, XCB_NONE));
    // Warps make no raw motion.
    warp(display, {300, 1000});
    EXPECT_TRUE(isAt({300, 1000}, tracked->frame));
    warp(display, {340, 1000});
    EXPECT_TRUE(isAt({340, 1000}, tracked->frame));
    warp(display, {340, 500});
    EXPECT_TRUE(isAt({340, 500}, XCB_NONE));

    // Other events of the desktop do not count as motion.
    const int moved = desk.recorder().moved;
    dock.setBytes("WM_NAME", "STRING", "still");
    desk.waitForWindow(dock.id(), [](const TrackedWindow& w) { return w.title == u"still"_s; });
    EXPECT_EQ(desk.recorder().moved, moved);

    for (const int button : {1, 3, 5}) // the last one is the wheel
        display.click(button);
    const std::vector<int> expected{1, 3};
    EXPECT_TRUE(desk.waitFor([&] { return desk.recorder().heard().buttons == expected; }));
}

TEST(Pointer, buttonsKeysAndPlace_areToldInPortTerms)
{
    X11Desk desk(plain);
    Display& display = desk.display();
    InputState& input = desk.core().inputState();
    display.moveTo({600, 500});
    EXPECT_TRUE(desk.waitFor([&] { return input.mouseLocation() == QPointF(600, 1024 - 500.5); }));

    struct Key {
        std::uint8_t code;
        std::uint32_t flag;
    };
    // Shift_L, Control_L, Alt_L, Super_L on the server's keyboard.
    for (const Key key : {Key{50, ModifierFlag::shift}, Key{37, ModifierFlag::control},
                          Key{64, ModifierFlag::option}, Key{133, ModifierFlag::command}}) {
        display.holdKey(key.code);
        EXPECT_TRUE(desk.waitFor([&] { return input.modifierFlags() == key.flag; }));
        display.letGoOfKey(key.code);
    }
    EXPECT_TRUE(desk.waitFor([&] { return input.modifierFlags() == 0; }));
    for (const auto& [button, bit] : {std::pair(1, 1U), std::pair(2, 4U), std::pair(3, 2U)}) {
        display.press(button);
        EXPECT_TRUE(desk.waitFor([&, bits = bit] { return input.pressedMouseButtons() == bits; }));
        display.release(button);
    }
    EXPECT_TRUE(desk.waitFor([&] { return input.leftMouseDowns() == 1; }));
}

TEST(Keys, heardWithAltOrSuperAlone_sayWhichWasHeldDown)
{
    X11Desk desk(plain);
    Display& display = desk.display();
    constexpr std::uint8_t alt = 64, tab = 23;
    constexpr std::int64_t altKey = 0xffe9, tabKey = 0xff09;
    const auto press = [&](std::uint8_t key, std::uint32_t heldFor = 0) {
        display.holdKey(key);
        // After so many milliseconds, which the server waits.
        xcb_test_fake_input(display.connection(), XCB_KEY_RELEASE, key, heldFor, display.root(), 0,
                            0, 0);
        xcb_flush(display.connection());
    };
    desk.core().hearKeys(KeyHearing::WithModifier);
    ASSERT_TRUE(desk.waitFor([&] {
        press(alt); // until it is heard
        return !desk.recorder().heard().keys.empty();
    }));
    press(tab); // what people write
    display.holdKey(alt);
    press(tab);
    press(tab, 400);
    display.letGoOfKey(alt);
    press(tab);
    press(alt);
    const auto lastKeys = [&](std::size_t count) {
        const auto keys = desk.recorder().heard().keys;
        return std::vector(keys.end() - std::min<std::ptrdiff_t>(count, keys.size()), keys.end());
    };
    const std::vector expected{altKey, altKey, tabKey, tabKey, -tabKey, altKey};
    EXPECT_TRUE(desk.waitFor([&] { return lastKeys(expected.size()) == expected; }))
        << testing::PrintToString(desk.recorder().heard().keys);

    // A key and what comes of it are read at once by whom the key before has kept busy.
    const std::size_t before = desk.recorder().heard().keys.size();
    {
        const auto busy = desk.recorder().keepBusy();
        press(alt);
        display.activeWindow(); // it is out
        press(alt);
        xcb_change_property(display.connection(), XCB_PROP_MODE_APPEND, display.root(),
                            display.atom("_NET_SUPPORTING_WM_CHECK"), XCB_ATOM_WINDOW, 32, 0,
                            nullptr);
        display.activeWindow();
    }
    ASSERT_TRUE(desk.waitFor([&] {
        return desk.recorder().heard().keys.size() == before + 2 &&
               desk.recorder().keysBeforeManager > before;
    }));
    EXPECT_EQ(desk.recorder().keysBeforeManager, before + 2);
}

TEST(Screens, mainScreen_isTheOneWithTheDock)
{
    X11Desk desk(plain);
    Display& display = desk.display();
    WindowServer& server = desk.core().windowServer();
    EXPECT_EQ(server.screens(), (std::vector<QRectF>{{0, 0, 1280, 1024}}));

    const auto xrandr = [&](const QStringList& arguments) {
        desk.session().start(u"xrandr"_s, u"xrandr"_s, arguments)->waitForExit(patience(5000));
    };
    xrandr({u"--setmonitor"_s, u"left"_s, u"640/100x1024/100+0+0"_s, u"none"_s});
    xrandr({u"--setmonitor"_s, u"right"_s, u"640/100x1024/100+640+0"_s, u"none"_s});
    const QRectF self(0, 0, 640, 1024);
    const auto hasScreen = [&](const QRectF& screen) {
        const auto screens = server.screens();
        return std::find(screens.begin(), screens.end(), screen) != screens.end();
    };
    ASSERT_TRUE(desk.waitFor([&] { return hasScreen({640, 0, 640, 1024}); }));
    EXPECT_GE(desk.recorder().screenChanges, 1);

    const int changes = desk.recorder().screenChanges;
    desk.core().screens().setMainScreenHint({700, 980, 500, 44});
    EXPECT_EQ(server.screens().front(), self);
    EXPECT_TRUE(hasScreen({-640, 0, 640, 1024}));
    EXPECT_EQ(server.toolkitOffset({0, 0, 50, 50}), QPointF(640, 0));
    EXPECT_TRUE(desk.waitFor([&] { return desk.recorder().screenChanges > changes; }));
    display.moveTo({700, 1000});
    EXPECT_TRUE(desk.waitFor(
        [&] { return desk.core().inputState().mouseLocation() == QPointF(60, 23.5); }));

    xrandr({u"--delmonitor"_s, u"left"_s});
    xrandr({u"--delmonitor"_s, u"right"_s});
    EXPECT_TRUE(desk.waitFor([&] { return server.screens().size() == 1; }));
}

TEST(PointSpace, pixelsAndPoints_convertBothWaysFromAnyMainScreen)
{
    PointSpace points(2.0);
    points.setScreens({{1920, 100, 2560, 1440}, {0, 0, 1920, 1080}});
    EXPECT_EQ(points.toPoints(QRect(1920, 100, 2560, 1440)), QRectF(0, 0, 1280, 720));
    EXPECT_EQ(points.toPoints(QRect(0, 0, 1920, 1080)), QRectF(-960, -50, 960, 540));
    EXPECT_EQ(points.toPixels({10.5, 20}), QPoint(1941, 140));
    EXPECT_EQ(points.toScreenPoints({1920, 1540}), QPointF(0, 0));
    EXPECT_EQ(points.toScreenPoints({1940, 100}), QPointF(10, 720));
    // The toolkit has the screens where they are in pixels, and inside of them counts in points.
    EXPECT_EQ(points.toolkitOffset({0, 0, 100, 100}), QPointF(1920, 100));
    EXPECT_EQ(points.toolkitOffset({-960, -50, 100, 100}), QPointF(960, 50));
    EXPECT_EQ(points.toolkitOffset({5000, 0, 100, 100}), QPointF(1920, 100)) << "the nearest";
    points.setPixelsPerPoint(1.0);
    EXPECT_EQ(points.toPoints(QPoint(1930, 120)), QPointF(10, 20));
    EXPECT_EQ(points.toolkitOffset({-1920, -100, 100, 100}), QPointF(1920, 100)) << "as everywhere";
}

} // namespace
} // namespace lumbrix::platform::x11
