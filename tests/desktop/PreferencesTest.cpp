// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The preferences, by keyboard as a person uses them.
#include "DesktopTest.h"

#include <algorithm>

#include "Keys.h"
#include "platform/StringLiterals.h"

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
    /// The pane's part of it.
    QByteArray title()
    {
        return display().bytes(preferences(), "_NET_WM_NAME").split(' ').value(0);
    }
    /// Without an icon in a menu, starting the program again is the way to its preferences.
    void openPreferences(const QByteArray& pane)
    {
        desk().stopLumbrix(); // what the test before has changed
        desk().startLumbrix({{u"hideIcon"_s, u"1"_s}, {u"showFastKeys"_s, u"0"_s}});
        ASSERT_TRUE(parkShowsNothing());
        m_second = desk().session().start(u"second"_s, lumbrixBinary());
        ASSERT_TRUE(getsFocus(u"preferences"_s));
        for (int i = 0; i < 8 && title() != pane; ++i) {
            const QByteArray before = title();
            type({controlKey, tabKey});
            ASSERT_TRUE(waitUntil([&] { return title() != before; }));
        }
        ASSERT_EQ(title(), pane);
    }
    bool stores(const QByteArray& line)
    {
        return waitUntil([&] { return settings().split('\n').contains(line); });
    }
    /// How many pixels of the window, below the toolbar, are of such a colour.
    int count(const std::function<bool(QRgb)>& isSought)
    {
        const QRect area = display().geometry(preferences()).value_or(QRect());
        return pixelsOf(display().picture(area.adjusted(0, 80, 0, 0)), isSought).count;
    }
    /// Whether a field has the tint of one that waits for keys.
    bool isRecording()
    {
        return count([](QRgb c) {
                   return qBlue(c) > 240 && qBlue(c) - qRed(c) > 15 && qGreen(c) > 230;
               }) > 1000;
    }
    void record(const std::vector<std::uint8_t>& keys, std::uint8_t mnemonic = tKey)
    {
        type({altKey, mnemonic});
        ASSERT_TRUE(waitUntil([this] { return isRecording(); }));
        type(keys);
        ASSERT_TRUE(waitUntil([this] { return !isRecording(); }));
    }

private:
    std::unique_ptr<Process> m_second;
};

INSTANTIATE_TEST_SUITE_P(, PreferencesTest, testing::Values(plank(), tint2()), deskName);

TEST_P(PreferencesTest, sizeSlider_movedByKeys_showsASampleBesideTheDock)
{
    openPreferences("Appearance");
    type({altKey, wKey});
    type({rightKey});
    ASSERT_TRUE(waitUntil([this] { return display().previews().size() == 1; }));
    const QRect sample = display().previews().front().geometry;
    EXPECT_EQ(sample.width(), 244);
    EXPECT_LT(sample.bottom(), display().dockArea()->bottom());
    EXPECT_GT(sample.bottom(), display().dockArea()->top() - 120);
    EXPECT_TRUE(stores("windowWidth=244"));
    EXPECT_EQ(display().activeWindow(), preferences()) << "the sample took the focus";
    EXPECT_TRUE(showsNothing()) << "the sample stays";

    type({controlKey, wKey});
    EXPECT_TRUE(waitUntil([this] { return preferences() == XCB_NONE; }));
}

TEST_P(PreferencesTest, blockAll_chosenWhilePreviewsShow_stopsThemAtOnceAndForGood)
{
    const Application& alpha = launch(u"alpha"_s, 2);
    const Application& beta = launch(u"beta"_s, 1);
    openPreferences("Filters");
    type({altKey, aKey});
    ASSERT_TRUE(getsFocus(u"alert"_s));
    for (const std::uint8_t key : {aKey, lKey, pKey}) // "Alpha"
        type({key});
    type({tabKey});
    type({endKey}); // "Block all"
    ASSERT_TRUE(hoverShows(alpha)) << "the sheet holds the previews up";
    type({returnKey});
    EXPECT_TRUE(waitUntil([this] { return display().previews().empty(); }, 400))
        << "at once, not with the next update";
    EXPECT_TRUE(waitUntil([this] { return !window(u"alert"_s); }));
    EXPECT_TRUE(stores("alpha=3"));
    EXPECT_TRUE(stores("All applications=2"));
    EXPECT_TRUE(hoverShows(beta));

    desk().startLumbrixAgain(beta);
    hover(alpha);
    EXPECT_TRUE(waitUntil([this] { return display().previews().empty(); }));
    EXPECT_FALSE(waitUntil([this] { return !display().previews().empty(); }, 1000));
}

TEST_P(PreferencesTest, hotKey_recorded_worksFromAnyProgramUnseenByIt)
{
    Application& alpha = launch(u"alpha"_s, 1);
    openPreferences("Hotkeys");
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

// Keys are tried while they are looked at, and no longer.
TEST_P(PreferencesTest, hotKeysPane_outOfSight_givesTheKeysBack)
{
    Application& alpha = launch(u"alpha"_s, 1);
    const std::vector<std::uint8_t> keys{superKey, altKey, kKey};
    const auto seen = [&](int key) { return std::ranges::count(alpha.keys(), key); };
    openPreferences("Hotkeys");
    record(keys, cKey);
    ASSERT_TRUE(stores("[closeAllWindowsKey]"));
    const xcb_window_t shown = preferences();
    alpha.activate(alpha.windows().front());
    ASSERT_TRUE(waitUntil([&] { return display().activeWindow() == alpha.windows().front().id; }));
    type(keys);
    type({jKey}); // comes after what the keys have made
    EXPECT_TRUE(waitUntil([&] { return seen(jKey) > 0; }));
    EXPECT_EQ(seen(kKey), 0);
    constexpr std::uint32_t iconic = 3;
    display().request(shown, "WM_CHANGE_STATE", {iconic});
    EXPECT_TRUE(waitUntil([&] {
        type(keys);
        return seen(kKey) > 0;
    }));
}

} // namespace lumbrix::privatedesk
