// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QToolButton>

#include "app/HotKeyIdentifiers.h"
#include "app/SGHotKeyCenter.h"
#include "app/preferences/NoteLabel.h"
#include "app/preferences/SRRecorderControl.h"
#include "platform/InputState.h"
#include "tests/app/AppFixture.h"

namespace lumbrix::test
{
namespace
{

using platform::TapKey;
using platform::ModifierFlag::command;
using platform::ModifierFlag::option;

constexpr std::uint32_t kKey = 40; // the letter K's place
constexpr TapKey superAltK{kKey, command | option};
constexpr auto superAlt = Qt::MetaModifier | Qt::AltModifier;

class RecorderTest : public AppFixture
{
protected:
    RecorderTest()
    {
        haveUser();
        desk.keyboardLayout().choose({{kKey, u"k"_s}});
    }
    void open()
    {
        start();
        controller->showPreferences();
        PrefsController::sharedPrefsWindowController().displayViewForIdentifier(u"Hotkeys"_s,
                                                                                false);
        ASSERT_TRUE(QTest::qWaitForWindowActive(PrefsController::openWindow()));
        recorder = find<SRRecorderControl>(u"enableDisableControl"_s);
        recorder->setFocus();
        loop.runUntilIdle();
    }
    /// As the keyboard does it, with the number of the key's place.
    void send(QEvent::Type type, int key, Qt::KeyboardModifiers modifiers, std::uint32_t place,
              bool isRepeat = false) const
    {
        QKeyEvent event(type, key, modifiers, place + 8, 0, 0, QString(), isRepeat);
        QWidget* grabber = QWidget::keyboardGrabber();
        QApplication::sendEvent(grabber ? grabber : QApplication::focusWidget(), &event);
    }
    void type(int key, Qt::KeyboardModifiers modifiers, std::uint32_t place)
    {
        send(QEvent::KeyPress, key, modifiers, place);
        send(QEvent::KeyRelease, key, modifiers, place);
        loop.runUntilIdle();
    }
    bool typeSomewhereElse(const TapKey& key)
    {
        const bool isSwallowed = taps.type(key);
        loop.runUntilIdle();
        return isSwallowed;
    }
    SGKeyCombo stored()
    {
        const auto plist = defaults.dictionaryForKey(HotKeyIdentifier::EnableDisable);
        return SGKeyCombo::initWithPlistRepresentation(plist.value_or(QVariantMap()));
    }
    bool isDisabled() { return defaults.integerForKey(u"disabled"_s) != 0; }

    SimulatedEventTaps& taps = desk.eventTaps();
    SRRecorderControl* recorder = nullptr;
};

TEST_F(RecorderTest, keysPressed_becomeTheHotKeyOnceTheyAreReleased)
{
    open();
    EXPECT_EQ(recorder->displayText(), u"Click to record"_s);
    recorder->click();
    EXPECT_TRUE(recorder->isRecording());
    send(QEvent::KeyPress, Qt::Key_Super_L, {}, 0);
    send(QEvent::KeyPress, Qt::Key_Alt, Qt::MetaModifier, 0);
    EXPECT_EQ(recorder->displayText(), u"Super+Alt+\u2026"_s);
    send(QEvent::KeyPress, Qt::Key_K, superAlt, kKey);
    EXPECT_EQ(recorder->displayText(), u"Super+Alt+K"_s);
    EXPECT_EQ(stored(), (SGKeyCombo{kKey, 0x900}));
    EXPECT_FALSE(defaults.hasUnsavedChanges());
    loop.advance(1);
    EXPECT_FALSE(typeSomewhereElse(superAltK)) << "a key still held would act at once";
    send(QEvent::KeyPress, Qt::Key_K, superAlt, kKey, true);
    send(QEvent::KeyRelease, Qt::Key_K, superAlt, kKey, true);
    EXPECT_TRUE(recorder->isRecording());
    send(QEvent::KeyRelease, Qt::Key_K, superAlt, kKey);
    EXPECT_FALSE(recorder->isRecording());
    loop.runUntilIdle();
    EXPECT_FALSE(isDisabled());
    EXPECT_TRUE(typeSomewhereElse(superAltK));
    EXPECT_TRUE(isDisabled());

    // The same keys can be pressed again, though they are a hot key now.
    recorder->click();
    loop.runUntilIdle();
    EXPECT_TRUE(taps.keysHeld().empty());
    type(Qt::Key_K, superAlt, kKey);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_TRUE(typeSomewhereElse(superAltK));
    EXPECT_FALSE(isDisabled());
}

TEST_F(RecorderTest, keysThatCannotBeAHotKey_areNotTaken)
{
    open();
    recorder->click();
    type(Qt::Key_K, {}, kKey);
    EXPECT_TRUE(recorder->isRecording()) << "a modifier is needed";
    type(Qt::Key_A, Qt::MetaModifier, 0);
    EXPECT_TRUE(recorder->isRecording()) << "key code 0 cannot be stored";
    EXPECT_EQ(recorder->displayText(), u"This key cannot be used"_s);
    // Neither the window's shortcuts nor the focus get what is recorded.
    QKeyEvent override(QEvent::ShortcutOverride, Qt::Key_W, Qt::ControlModifier);
    override.ignore();
    QApplication::sendEvent(recorder, &override);
    EXPECT_TRUE(override.isAccepted());
    type(Qt::Key_Tab, Qt::ControlModifier | Qt::AltModifier, 48);
    EXPECT_EQ(stored(), (SGKeyCombo{48, 0x1800}));
    EXPECT_EQ(recorder->displayText(), u"Ctrl+Alt+Tab"_s);

    recorder->click();
    type(Qt::Key_Escape, {}, 53);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_EQ(stored(), (SGKeyCombo{48, 0x1800}));
    EXPECT_EQ(taps.keysHeld().size(), 1U);
    recorder->click();
    type(Qt::Key_Tab, {}, 48);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_NE(QApplication::focusWidget(), recorder) << "a plain Tab moves on";

    recorder->setFocus();
    recorder->click();
    type(Qt::Key_Backspace, {}, 51);
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_TRUE(stored().isClearCombo());
    EXPECT_EQ(recorder->displayText(), u"Click to record"_s);
    recorder->click();
    QApplication::focusWidget()->clearFocus();
    EXPECT_FALSE(recorder->isRecording()) << "the keyboard is kept from everybody meanwhile";
    EXPECT_FALSE(QWidget::keyboardGrabber());
}

// With an icon in the Dock the window is never closed, only minimised.
TEST_F(RecorderTest, windowOutOfSight_takesNoKeysAndWakesNobodyUp)
{
    defaults.setDictionary(SGKeyCombo{kKey, 0x900}.plistRepresentation(),
                           HotKeyIdentifier::CloseAllWindows);
    open();
    QWidget& window = *PrefsController::openWindow();
    const std::pair<std::function<void()>, std::function<void()>> ways[] = {
        {[&] { window.showMinimized(); }, [&] { window.showNormal(); }},
        {[&] { window.windowHandle()->hide(); }, [&] { window.windowHandle()->show(); }},
    };
    for (const auto& [leave, comeBack] : ways) {
        EXPECT_EQ(taps.keysHeld(), std::vector<TapKey>{superAltK});
        recorder->click();
        leave();
        QCoreApplication::processEvents();
        loop.runUntilIdle();
        EXPECT_FALSE(recorder->isRecording());
        EXPECT_TRUE(taps.keysHeld().empty());
        EXPECT_GT(loop.timeUntilNextEvent(), 0.25);
        comeBack();
        QCoreApplication::processEvents();
        loop.runUntilIdle();
    }
    EXPECT_EQ(taps.keysHeld(), std::vector<TapKey>{superAltK});
}

TEST_F(RecorderTest, keysOfAnotherProgramOrChosenTwice_areMarked)
{
    taps.take(superAltK);
    defaults.setDictionary(SGKeyCombo{kKey, 0x900}.plistRepresentation(),
                           HotKeyIdentifier::CloseAllWindows);
    open();
    const auto note = [](const char* name) { return find<NoteLabel>(QLatin1String(name))->text(); };
    loop.advance(0.5);
    EXPECT_TRUE(note("closeAllWindowsNote").startsWith(u"Taken")) << "though no preview is up";
    EXPECT_TRUE(note("enableDisableNote").isEmpty());
    recorder->click();
    type(Qt::Key_K, superAlt, kKey);
    EXPECT_TRUE(note("enableDisableNote").startsWith(u"Chosen twice"));
    recorder = find<SRRecorderControl>(u"closeAllWindowsControl"_s);
    recorder->findChild<QToolButton*>()->click();
    loop.advance(0.5);
    EXPECT_TRUE(note("closeAllWindowsNote").isEmpty());
    EXPECT_TRUE(note("enableDisableNote").startsWith(u"Taken"));

    // Keys are tried only while they are looked at.
    find<SRRecorderControl>(u"enableDisableControl"_s)->findChild<QToolButton*>()->click();
    defaults.setDictionary(SGKeyCombo{kKey, 0x800}.plistRepresentation(),
                           HotKeyIdentifier::CloseAllWindows);
    controller->updateState();
    loop.runUntilIdle();
    EXPECT_EQ(taps.keysHeld().size(), 1U);
    PrefsController::sharedPrefsWindowController().displayViewForIdentifier(u"General"_s, false);
    loop.runUntilIdle();
    EXPECT_TRUE(taps.keysHeld().empty());
}

} // namespace
} // namespace lumbrix::test
