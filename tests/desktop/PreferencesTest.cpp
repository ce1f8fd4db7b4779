// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The hot keys of the preferences, recorded as a person does it.
#include "DesktopTest.h"

#include <algorithm>

#include "Keys.h"

namespace lumbrix::privatedesk
{

class PreferencesTest : public DesktopTest
{
protected:
    void type(const std::vector<std::uint8_t>& keys) { display().type(keys); }
    xcb_window_t preferences()
    {
        const auto shown = window(u"preferences"_s);
        return shown ? shown->id : XCB_NONE;
    }
    QByteArray title() { return display().bytes(preferences(), "_NET_WM_NAME"); }
    /// Without an icon in a menu, starting the program again is the way to its preferences.
    void openHotKeys()
    {
        desk().stopLumbrix(); // what the test before has changed
        desk().startLumbrix({{u"hideIcon"_s, u"1"_s}, {u"showFastKeys"_s, u"0"_s}});
        ASSERT_TRUE(parkShowsNothing());
        m_second = desk().session().start(u"second"_s, lumbrixBinary());
        ASSERT_TRUE(getsFocus(u"preferences"_s));
        while (!title().startsWith("Hotkeys")) {
            const QByteArray before = title();
            type({controlKey, tabKey});
            ASSERT_TRUE(waitUntil([&] { return title() != before; }));
        }
    }
    bool stores(const QByteArray& line)
    {
        return waitUntil([&] { return settings().split('\n').contains(line); });
    }
    /// Whether a field below the toolbar has the tint of one that waits for keys.
    bool isRecording()
    {
        const QRect area = display().geometry(preferences()).value_or(QRect());
        const auto isTint = [](QRgb c) {
            return qBlue(c) > 240 && qBlue(c) - qRed(c) > 15 && qGreen(c) > 230;
        };
        return pixelsOf(display().picture(area.adjusted(0, 80, 0, 0)), isTint).count > 1000;
    }
    void record(const std::vector<std::uint8_t>& keys)
    {
        type({altKey, tKey});
        ASSERT_TRUE(waitUntil([this] { return isRecording(); }));
        type(keys);
        ASSERT_TRUE(waitUntil([this] { return !isRecording(); }));
    }

private:
    std::unique_ptr<Process> m_second;
};

INSTANTIATE_TEST_SUITE_P(, PreferencesTest, testing::Values(plank(), tint2()), deskName);

TEST_P(PreferencesTest, hotKey_recorded_worksFromAnyProgramUnseenByIt)
{
    Application& alpha = launch(u"alpha"_s, 1);
    openHotKeys();
    for (int i = 0; i < 2; ++i) { // a key that is in force already is recorded like any other
        record({superKey, altKey, kKey});
        ASSERT_TRUE(stores("[enableDisableKey]"));
        EXPECT_TRUE(stores("keyCode=40"));
        EXPECT_TRUE(stores("modifiers=2304"));
        EXPECT_FALSE(settings().contains("disabled=1")) << "it acted while it was recorded";
    }
    alpha.activate(alpha.windows().front());
    ASSERT_TRUE(waitUntil([&] { return display().activeWindow() == alpha.windows().front().id; }));
    type({superKey, altKey, kKey});
    EXPECT_TRUE(stores("disabled=1"));
    type({superKey, altKey, kKey});
    EXPECT_TRUE(stores("disabled=0"));
    const std::vector<int> keys = alpha.keys();
    EXPECT_GT(std::count(keys.begin(), keys.end(), int{superKey}), 0) << "it had no focus";
    EXPECT_EQ(std::count(keys.begin(), keys.end(), int{kKey}), 0);
}

} // namespace lumbrix::privatedesk
