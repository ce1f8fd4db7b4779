// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/SGHotKeyCenter.h"
#include "model/SGKeyCombo.h"
#include "platform/InputState.h"
#include "tests/app/AppFixture.h"

namespace lumbrix::test
{
namespace
{

using platform::TapEvent;
using platform::TapKey;
using platform::ModifierFlag::command;
using platform::ModifierFlag::option;
using platform::ModifierFlag::shift;

constexpr TapKey digits[] = {{18, command}, {19, command}, {20, command}};
constexpr std::int64_t optionBit = 0x800;
constexpr std::int64_t pKey = 35; // the letter P's place

class HotKeyTest : public AppFixture
{
protected:
    void store(const QString& identifier, std::int64_t keyCode, std::int64_t modifiers = optionBit)
    {
        defaults.setDictionary(SGKeyCombo{keyCode, modifiers}.plistRepresentation(), identifier);
    }
    bool type(const TapKey& key)
    {
        const bool isSwallowed = taps.type(key);
        loop.runUntilIdle();
        return isSwallowed;
    }
    SimulatedEventTaps& taps = desk.eventTaps();
};

TEST_F(HotKeyTest, numberKeys_workWhilePreviewsAreUpAndOnlyThen)
{
    const Pid pid = addApplication(u"Editor"_s, 3);
    addApplication(u"Mail"_s, 1);
    start();
    EXPECT_FALSE(type(digits[1]));
    hover(u"Editor"_s);
    EXPECT_EQ(taps.keysHeld(), std::vector<TapKey>(std::begin(digits), std::end(digits)));
    EXPECT_FALSE(type({19, 0}));
    EXPECT_FALSE(type({19, command | shift}));
    EXPECT_FALSE(type({21, command})) << "there is no fourth preview";
    EXPECT_NE(desk.activeApplication(), pid);

    const WindowID second = engine().screenyViews()[1]->elementRef()->wid();
    EXPECT_TRUE(type(digits[1]));
    loop.advance(1);
    EXPECT_EQ(desk.activeApplication(), pid);
    EXPECT_EQ(desk.stacking().front(), second);

    leave();
    EXPECT_EQ(previews(), 0U);
    EXPECT_TRUE(taps.keysHeld().empty());
    hover(u"Mail"_s);
    EXPECT_EQ(taps.keysHeld(), std::vector<TapKey>{digits[0]});
    defaults.setInteger(0, u"showFastKeys"_s);
    leave();
    controller->updateState();
    hover(u"Editor"_s);
    EXPECT_EQ(previews(), 3U);
    EXPECT_TRUE(taps.keysHeld().empty());
}

TEST_F(HotKeyTest, toggleKey_worksFromAnywhereWithPreviewsOnAndOff)
{
    addApplication(u"Editor"_s, 1);
    store(u"enableDisableKey"_s, pKey);
    const TapKey toggle{pKey, option};
    start();
    EXPECT_EQ(taps.keysHeld(), std::vector<TapKey>{toggle});
    hover(u"Editor"_s);
    EXPECT_EQ(previews(), 1U);
    EXPECT_TRUE(type(toggle));
    EXPECT_EQ(previews(), 0U);
    EXPECT_EQ(defaults.integerForKey(u"disabled"_s), 1);
    EXPECT_EQ(taps.keysHeld(), std::vector<TapKey>{toggle});
    leave();
    hover(u"Editor"_s);
    EXPECT_EQ(previews(), 0U);

    EXPECT_TRUE(type(toggle));
    leave();
    hover(u"Editor"_s);
    EXPECT_EQ(previews(), 1U);
    // A changed setting leaves the numbers of these previews working.
    controller->updateState();
    loop.runUntilIdle();
    EXPECT_EQ(taps.keysHeld().size(), 2U);
    leave();
    defaults.removeObjectForKey(u"enableDisableKey"_s);
    controller->updateState();
    loop.runUntilIdle();
    EXPECT_TRUE(taps.keysHeld().empty());
}

TEST_F(HotKeyTest, otherStoredKeys_actOnThePreviewsThatAreUp)
{
    const Pid pid = addApplication(u"Editor"_s, 2);
    store(u"hideAllPreviewsKey"_s, pKey);
    store(u"closeAllWindowsKey"_s, 36, 0x100 | optionBit);
    defaults.setBool(true, u"firstRun"_s);
    for (const char* on : {"showInDock", "hideClose"})
        defaults.setInteger(1, QLatin1String(on));
    defaults.setFloat(200, u"windowWidth"_s);
    defaults.setFloat(150, u"windowHeight"_s);
    start(); // without number keys
    EXPECT_TRUE(taps.keysHeld().empty());
    hover(u"Editor"_s);
    EXPECT_TRUE(type({pKey, option}));
    EXPECT_EQ(previews(), 0U);
    EXPECT_EQ(desk.stacking().size(), 2U);

    leave();
    hover(u"Editor"_s);
    desk.eventTaps().take({pKey, option});
    const auto taken = controller->hotKeyCenter().takenHotKeys();
    ASSERT_EQ(taken.size(), 1U);
    EXPECT_EQ(taken[0]->identifier, u"hideAllPreviewsKey"_s);
    engine().screenyViews().front()->mouseEntered();
    EXPECT_FALSE(engine().screenyViews().front()->isCloseButtonEnabled());
    EXPECT_TRUE(type({36, command | option}));
    loop.advance(1);
    EXPECT_TRUE(desk.stacking().empty()) << "also those whose button is disabled";
    EXPECT_EQ(desk.application(pid).pid, pid);
}

TEST_F(HotKeyTest, rowKey_opensTheRowFromAnywhere_unlessPreviewsAreOff)
{
    const Pid pid = addApplication(u"Editor"_s, 2);
    store(u"openRowKey"_s, pKey);
    store(u"closeAllWindowsKey"_s, 36);
    const TapKey open{pKey, option};
    start();
    desk.activateApplication(pid);
    EXPECT_EQ(taps.keysHeld(), std::vector<TapKey>{open}) << "the other one is for a row";
    EXPECT_TRUE(type(open));
    EXPECT_EQ(previews(), 2U);
    loop.advance(5);
    EXPECT_EQ(taps.keysHeld().size(), 5U) << "both, two digits and Escape";
    EXPECT_TRUE(type({53, 0}));
    EXPECT_EQ(previews(), 0U);
    EXPECT_EQ(taps.keysHeld(), std::vector<TapKey>{open});
    controller->toggleDisabled();
    loop.runUntilIdle();
    EXPECT_FALSE(type(open));
}

TEST_F(HotKeyTest, escape_takesTheRowAway_unseenByTheProgramWhileTheMouseIsOnAPreview)
{
    constexpr TapKey escape{53, 0};
    addApplication(u"Editor"_s, 2);
    start();
    EXPECT_FALSE(type(escape));
    for (const bool isOnPreview : {false, true}) {
        hover(u"Editor"_s);
        ASSERT_EQ(previews(), 2U);
        if (isOnPreview)
            engine().screenyViews().front()->mouseEntered();
        loop.runUntilIdle();
        EXPECT_EQ(type(escape), isOnPreview);
        EXPECT_EQ(previews(), 0U);
        loop.advance(2);
        EXPECT_EQ(previews(), 0U) << "though the mouse is where it was";
        EXPECT_FALSE(type(escape));
        EXPECT_TRUE(taps.keysHeld().empty());
        leave();
    }
}

TEST_F(HotKeyTest, clicks_duringTheSwitcher_goToThePreviewUnderTheMouse)
{
    const Pid pid = addApplication(u"Editor"_s, 1);
    const auto click = [this](TapEvent::Type type) { return taps.send({type, {}}); };
    start();
    desk.openSwitcher({{u"Editor"_s}});
    loop.runUntilIdle();
    ASSERT_EQ(previews(), 1U);
    EXPECT_EQ(taps.keysHeld(), std::vector<TapKey>{digits[0]});
    EXPECT_FALSE(click(TapEvent::Type::LeftMouseDown)) << "beside the preview";
    desk.movePointer(engine().screenyViews().front()->window()->frame().center());
    EXPECT_TRUE(click(TapEvent::Type::LeftMouseUp)) << "which does nothing more";
    loop.advance(0.05);
    EXPECT_NE(desk.activeApplication(), pid);
    EXPECT_TRUE(click(TapEvent::Type::LeftMouseDown));
    loop.advance(0.05);
    EXPECT_EQ(desk.activeApplication(), pid);
    desk.closeSwitcher();
    loop.advance(1);
    EXPECT_FALSE(click(TapEvent::Type::LeftMouseDown));
}

TEST_F(HotKeyTest, combo_isStoredShownAndRefusedWithoutModifier)
{
    const SGKeyCombo combo{19, 0x100 | 0x800 | 0x1000 | 0x200};
    EXPECT_EQ(SGKeyCombo::initWithPlistRepresentation(combo.plistRepresentation()), combo);
    EXPECT_TRUE(SGKeyCombo::initWithPlistRepresentation({}).isClearCombo());
    EXPECT_EQ(SGKeyCombo::initWithPlistRepresentation({{u"keyCode"_s, 0}, {u"modifiers"_s, 256}}),
              (SGKeyCombo{-1, 256}));
    // Settings files hold text.
    EXPECT_EQ(SGKeyCombo::initWithPlistRepresentation(
                  {{u"keyCode"_s, u"19"_s}, {u"modifiers"_s, u"nonsense"_s}}),
              (SGKeyCombo{19, -1}));

    SimulatedKeyboardLayout& keyboard = desk.keyboardLayout();
    keyboard.choose({{19, u"é"_s}, {83, u"1"_s}, {16, u"y"_s}});
    EXPECT_EQ(combo.description(keyboard), u"⌘⌥⌃⇧É"_s);
    EXPECT_EQ((SGKeyCombo{83, 256}).description(keyboard), u"⌘Pad 1"_s);
    EXPECT_EQ((SGKeyCombo{96, 256}).description(keyboard), u"⌘F5"_s);
    EXPECT_EQ((SGKeyCombo{113, 256}).description(keyboard), u"⌘F15"_s);
    keyboard.keyNames[113] = u"Pause"_s;
    EXPECT_EQ((SGKeyCombo{113, 256}).description(keyboard), u"⌘Pause"_s)
        << "what is printed on it here";
    EXPECT_EQ(SGKeyCombo().keyCodeString(keyboard), QString());
    EXPECT_EQ((SGKeyCombo{16, 0}).description(keyboard), u"(None)"_s);
    keyboard.choose({{16, u"z"_s}});
    EXPECT_EQ((SGKeyCombo{16, 256}).keyCodeString(keyboard), u"Z"_s);

    start();
    SGHotKeyCenter& center = controller->hotKeyCenter();
    const std::size_t before = center.allHotKeys().size();
    center.registerHotKey(std::make_shared<SGHotKey>(SGHotKey{u"plain"_s, {19, 0}, {}}));
    center.registerHotKey(nullptr);
    EXPECT_EQ(center.allHotKeys().size(), before);
}

} // namespace
} // namespace lumbrix::test
