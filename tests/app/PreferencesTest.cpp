// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSlider>

#include "app/HotKeyIdentifiers.h"
#include "app/SenderTitles.h"
#include "app/SettingsTable.h"
#include "app/preferences/SRRecorderControl.h"
#include "app/preferences/SettingsBinding.h"
#include "badges/WinNumberBadger.h"
#include "platform/InputState.h"
#include "tests/app/AppFixture.h"

namespace lumbrix::test
{
namespace
{

class PreferencesTest : public AppFixture
{
protected:
    PreferencesTest() { haveUser(); }

    void open()
    {
        if (!m_isStarted)
            start();
        controller->showPreferences();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    }
    static PrefsController& preferences() { return PrefsController::sharedPrefsWindowController(); }
    static QWidget* window() { return PrefsController::openWindow(); }
    static EngineSettings& settings() { return engine().settings(); }
};

/// The mnemonic of a text; null when it has none.
QChar mnemonicOf(const QString& text)
{
    const QKeySequence keys = QKeySequence::mnemonic(text);
    return keys.isEmpty() ? QChar() : QChar(keys[0].key());
}

QString titleOf(const QString& pane) { return pane + u" – Lumbrix Preferences"_s; }

QString range(double minimum, double maximum) { return u": %1 to %2"_s.arg(minimum).arg(maximum); }

/// The values that a control stores.
QString rangeOf(const QObject& control)
{
    if (const auto* slider = qobject_cast<const QSlider*>(&control)) {
        const QVariant step = slider->property("settingsStep");
        const double factor = step.isValid() ? step.toDouble() : 1;
        return range(slider->minimum() * factor, slider->maximum() * factor);
    }
    const auto* box = qobject_cast<const QComboBox*>(&control);
    if (!box)
        return range(0, 1);
    // In any order; those of the others are their places in the list.
    const QStringList values = box->property("settingsValues").toString().split(u',');
    const auto [first, last] = std::ranges::minmax(values);
    return box->property("settingsValues").isValid() ? range(first.toInt(), last.toInt())
                                                     : range(0, box->count() - 1);
}

TEST_F(PreferencesTest, windows_areDarkWithTheDesktopUnlessTheToolkitsThemeIs)
{
    const auto paper = [] { return QApplication::palette().color(QPalette::Window); };
    const QColor light = paper();
    start();
    desk.look().setDark(true);
    controller->showPreferences();
    EXPECT_LT(window()->palette().color(QPalette::Window).lightness(), 80);
    desk.look().setDark(std::nullopt);
    QApplication::processEvents();
    EXPECT_EQ(paper(), light);
    EXPECT_EQ(window()->palette().color(QPalette::Window), light);

    const QPalette theme(QColor(50, 20, 20), QColor(60, 10, 10));
    QApplication::setPalette(theme);
    for (const bool isDark : {true, false}) {
        desk.look().setDark(isDark);
        EXPECT_EQ(paper(), QColor(60, 10, 10));
    }
    QApplication::setPalette({});
}

TEST_F(PreferencesTest, everySettingOfTheUser_isBoundToOneControlWithItsRange)
{
    open();
    QStringList bound;
    for (const SettingsBinding* binding : window()->findChildren<SettingsBinding*>())
        bound << binding->key() + rangeOf(*binding->parent());
    QStringList wanted;
    for (const SettingRow& row : settingsTable())
        if (row.kind != SettingKind::Color) // the well has no binding
            wanted << QLatin1String(row.key) + range(row.minimum, row.maximum);
    bound.sort();
    wanted.sort();
    EXPECT_EQ(bound.join(u'\n'), wanted.join(u'\n'));

    QStringList titles;
    for (const QCheckBox* box : window()->findChildren<QCheckBox*>())
        titles << box->property("settingsTitle").toString();
    for (const QString& title :
         {SenderTitle::HideMenuIcon, SenderTitle::ShowIconInDock, SenderTitle::BadgeDockIcons})
        EXPECT_EQ(titles.count(title), 1) << qPrintable(title);
}

TEST_F(PreferencesTest, everyControl_isReachedByAMnemonicOfItsOwn)
{
    open();
    for (const QString& identifier : preferences().toolbarIdentifiers()) {
        const QWidget& pane = *preferences().toolbarViews().value(identifier);
        QMultiMap<QChar, QString> mnemonics;
        QSet<const QWidget*> buddies;
        for (const QLabel* label : pane.findChildren<QLabel*>()) {
            if (!label->buddy() || label->window() != window())
                continue; // a sheet has mnemonics of its own
            buddies.insert(label->buddy());
            mnemonics.insert(mnemonicOf(label->text()), label->text());
        }
        for (const QAbstractButton* button : pane.findChildren<QAbstractButton*>()) {
            if (button->window() != window())
                continue;
            if (qobject_cast<const QCheckBox*>(button) || qobject_cast<const QPushButton*>(button))
                mnemonics.insert(mnemonicOf(button->text()), button->text());
        }
        for (const SettingsBinding* binding : pane.findChildren<SettingsBinding*>()) {
            const auto* control = qobject_cast<const QWidget*>(binding->parent());
            // The choice of a key follows its checkbox.
            EXPECT_TRUE(qobject_cast<const QCheckBox*>(control) || buddies.contains(control) ||
                        control->property("modifierNames").toBool())
                << qPrintable(binding->key());
        }
        for (const QChar mnemonic : mnemonics.uniqueKeys()) {
            EXPECT_EQ(mnemonics.count(mnemonic), 1)
                << qPrintable(identifier) << ": "
                << qPrintable(mnemonics.values(mnemonic).join(u" / "_s));
            EXPECT_FALSE(mnemonic.isNull());
        }
    }
}

TEST_F(PreferencesTest, everyControl_movedByTheUser_storesSavesAndApplies)
{
    open();
    for (QCheckBox* box : window()->findChildren<QCheckBox*>()) {
        if (box->property("settingsTitle").isValid())
            continue; // these ask something too
        const QString key = box->property("settingsKey").toString();
        if (key.isEmpty())
            continue; // of a sheet
        const std::int64_t before = defaults.integerForKey(key);
        box->setEnabled(true);
        box->click();
        EXPECT_EQ(defaults.integerForKey(key), 1 - before) << qPrintable(key);
        EXPECT_FALSE(defaults.hasUnsavedChanges());
    }
    EXPECT_EQ(settings().ignoreMinimized, 1);
    EXPECT_EQ(settings().disabled, 1);
    EXPECT_EQ(controller->dontDelayIfOpen(), 1);

    auto* style = find<QComboBox>(u"previewStyle"_s);
    QTest::keyClick(style, Qt::Key_Down);
    EXPECT_EQ(defaults.integerForKey(u"previewStyle"_s), 1);
    EXPECT_EQ(settings().previewStyle, 1);
    auto* position = find<QComboBox>(u"badgePosition"_s);
    for (const int value : {2, 4, 3}) { // below the one of 0, as they are listed
        position->setEnabled(true);
        QTest::keyClick(position, Qt::Key_Down);
        EXPECT_EQ(defaults.integerForKey(u"badgePosition"_s), value);
    }
    auto* modifier = find<QComboBox>(u"onlyIfKeycode"_s);
    EXPECT_EQ(modifier->currentText(), u"Super"_s);
    QTest::keyClick(modifier, Qt::Key_Down);
    EXPECT_EQ(modifier->currentText(), u"Alt"_s);
    EXPECT_EQ(settings().onlyIfKeycode, 1);

    QTest::keyClick(find<QSlider>(u"exitDelay"_s), Qt::Key_Right);
    EXPECT_EQ(defaults.floatForKey(u"exitDelay"_s), 0.1F);
    EXPECT_EQ(settings().exitDelay, 0.1F);
    for (const auto& [locale, text] :
         {std::pair{QLocale(QLocale::German), u"0,1"_s}, {QLocale::c(), u"0.1"_s}}) {
        QLocale::setDefault(locale);
        controller->updateState();
        EXPECT_EQ(find<QLabel>(u"exitDelayLabel"_s)->text(), text);
    }

    defaults.setFloat(243, u"windowWidth"_s);
    preferences().refresh();
    QTest::keyClick(find<QSlider>(u"windowWidth"_s), Qt::Key_Right);
    EXPECT_EQ(settings().windowWidth, 244.0F);
    EXPECT_EQ(find<QLabel>(u"windowWidthValue"_s)->text(), u"244 pt"_s);
    EXPECT_TRUE(controller->samplePreview().previewWindow()) << "the sample shows the new width";
}

TEST_F(PreferencesTest, titledCheckbox_clicked_storesAppliesAndTellsTheUser)
{
    addApplication(u"Editor"_s, 1);
    open();
    loop.runUntilIdle();
    const auto& badger = static_cast<WinNumberBadger&>(*engine().companions().windowCountBadger);
    struct Row {
        QString title;
        const char* key;
        int magnifies, hides;
        const char* on; ///< what the sheet says; nothing where there is none
        const char* off;
    };
    const Row rows[] = {
        {SenderTitle::HideMenuIcon, "hideIcon", 0, 0, "Hide the menu icon", ""},
        {SenderTitle::ShowIconInDock, "showIconInDock", 0, 0, "Relaunch required",
         "Relaunch required"},
        {SenderTitle::BadgeDockIcons, "badgeDock", 0, 0, "", ""},
        {SenderTitle::BadgeDockIcons, "badgeDock", 1, 0, "Badge Dock Icons", ""},
        {SenderTitle::BadgeDockIcons, "badgeDock", 0, 1, "Badge Dock Icons", ""},
    };
    for (const Row& row : rows) {
        desk.setDockFlags(row.magnifies, row.hides);
        const auto boxes = window()->findChildren<QCheckBox*>();
        QCheckBox* box = *std::ranges::find_if(boxes, [&row](const QCheckBox* each) {
            return each->property("settingsTitle") == row.title;
        });
        for (const bool on : {true, false}) {
            SCOPED_TRACE(std::string(row.key) + (on ? " on" : " off"));
            box->click();
            EXPECT_EQ(defaults.integerForKey(QLatin1String(row.key)), on);
            QDialog* sheet = window()->findChild<QDialog*>(u"alert"_s);
            const QString said =
                sheet ? sheet->findChild<QLabel*>(u"messageText"_s)->text() : QString();
            EXPECT_EQ(said, QLatin1String(on ? row.on : row.off));
            EXPECT_EQ(badger.badgesArray().size(), defaults.integerForKey(u"badgeDock"_s));
            EXPECT_EQ(!controller->statusItem(), defaults.integerForKey(u"hideIcon"_s));
            delete sheet; // unanswered
        }
    }
}

TEST_F(PreferencesTest, switcherThatCannotBeRead_isSaidBesideItsSetting)
{
    open();
    preferences().displayViewForIdentifier(u"General"_s, false);
    for (const bool isRead : {false, true}) {
        desk.with([&](SimulatedState& state) { state.tellsSwitcher = isRead; });
        PrefsController::settingsDidChange();
        EXPECT_EQ(find<QCheckBox>(u"showInTab"_s)->isEnabled(), isRead);
        EXPECT_EQ(find<QLabel>(u"showInTabNote"_s)->isVisible(), !isRead);
    }
}

TEST_F(PreferencesTest, valuesBeyondAControl_stayUntilItIsMoved)
{
    const QMap<QString, float> floats{
        {u"windowWidth"_s, 1000}, {u"displayDelay"_s, 0.25F}, {u"distanceFromDock"_s, -7}};
    const QMap<QString, int> integers{{u"badgePosition"_s, 9}, {u"previewStyle"_s, 77},
                                      {u"spaceSize"_s, 7},     {u"hidePreviewsKeycode"_s, -1},
                                      {u"showInTab"_s, 5},     {u"neverClose"_s, -2}};
    for (auto each = floats.begin(); each != floats.end(); ++each)
        defaults.setFloat(each.value(), each.key());
    for (auto each = integers.begin(); each != integers.end(); ++each)
        defaults.setInteger(each.value(), each.key());
    open();
    for (const QString& identifier : preferences().toolbarIdentifiers())
        preferences().displayViewForIdentifier(identifier, false);
    EXPECT_EQ(find<QLabel>(u"windowWidthValue"_s)->text(), u"1000 pt"_s);
    EXPECT_EQ(find<QComboBox>(u"badgePosition"_s)->currentText(), u"Top right"_s);
    EXPECT_EQ(find<QComboBox>(u"previewStyle"_s)->currentText(), u"Black"_s);
    EXPECT_EQ(find<QComboBox>(u"spaceSize"_s)->currentText(), QString());
    EXPECT_EQ(find<QComboBox>(u"hidePreviewsKeycode"_s)->currentText(), u"Super"_s);
    EXPECT_TRUE(find<QCheckBox>(u"showInTab"_s)->isChecked());
    // To choose again what is shown is no change.
    auto* position = find<QComboBox>(u"badgePosition"_s);
    Q_EMIT position->activated(position->currentIndex());
    QTest::keyClick(find<QSlider>(u"windowWidth"_s), Qt::Key_Right); // at the end already
    for (auto each = floats.begin(); each != floats.end(); ++each)
        EXPECT_EQ(defaults.floatForKey(each.key()), each.value()) << qPrintable(each.key());
    for (auto each = integers.begin(); each != integers.end(); ++each)
        EXPECT_EQ(defaults.integerForKey(each.key()), each.value()) << qPrintable(each.key());

    QTest::keyClick(find<QSlider>(u"windowWidth"_s), Qt::Key_Left);
    EXPECT_EQ(defaults.floatForKey(u"windowWidth"_s), 599.0F);
}

TEST_F(PreferencesTest, settingsChangedElsewhere_areShownAtOnce)
{
    defaults.setInteger(1, u"badgeDock"_s);
    open();
    auto* disabled = find<QCheckBox>(u"disabled"_s);
    EXPECT_FALSE(disabled->isChecked());
    controller->toggleDisabled();
    EXPECT_TRUE(disabled->isChecked());

    // What depends on a checkbox follows it, however it changed.
    auto* position = find<QComboBox>(u"badgePosition"_s);
    auto* monochrome = find<QCheckBox>(u"monoChrome"_s);
    EXPECT_TRUE(position->isEnabled());
    EXPECT_TRUE(monochrome->isEnabled());
    EXPECT_FALSE(find<QComboBox>(u"onlyIfKeycode"_s)->isEnabled());
    defaults.setInteger(0, u"badgeDock"_s);
    defaults.setInteger(1, u"hideIcon"_s);
    find<QCheckBox>(u"onlyIfPressed"_s)->click();
    EXPECT_FALSE(position->isEnabled());
    EXPECT_FALSE(find<QLabel>(u"badgePositionTitle"_s)->isEnabled());
    EXPECT_FALSE(monochrome->isEnabled());
    EXPECT_TRUE(find<QComboBox>(u"onlyIfKeycode"_s)->isEnabled());
}

TEST_F(PreferencesTest, rowOfPreviews_followsControlsWhileItIsShown)
{
    const Pid pid = addApplication(u"Editor"_s, 2);
    const WindowID minimized = desk.addWindow(pid, {u"Minimized"_s, QRectF(100, 40, 400, 300)});
    desk.minimizeWindow(minimized);
    for (const char* on : {"showInDock", "showFastKeys", "neverClose"})
        defaults.setInteger(1, QLatin1String(on));
    defaults.setFloat(243, u"windowWidth"_s);
    defaults.setFloat(190, u"windowHeight"_s);
    open();
    hover(u"Editor"_s);
    const auto& row = engine().screenyViews();
    ASSERT_EQ(row.size(), 3U);
    EXPECT_EQ(desk.eventTaps().keysHeld().size(), 3U);

    find<QCheckBox>(u"ignoreMinimized"_s)->click();
    ASSERT_EQ(row.size(), 2U);
    find<QCheckBox>(u"showFastKeys"_s)->click();
    loop.runUntilIdle();
    EXPECT_TRUE(desk.eventTaps().keysHeld().empty());
    find<QSlider>(u"windowWidth"_s)->setValue(300);
    EXPECT_EQ(row.front()->window()->frame().width(), 300);
    EXPECT_EQ(row.back()->window()->frame().x() - row.front()->window()->frame().x(), 300);
    const double bottom = row.front()->window()->frame().y();
    find<QSlider>(u"distanceFromDock"_s)->setValue(20);
    EXPECT_EQ(row.front()->window()->frame().y(), bottom + 20);
    EXPECT_TRUE(row.front()->window()->isFront());
    find<QCheckBox>(u"showInDock"_s)->click();
    EXPECT_TRUE(row.empty());
}

TEST_F(PreferencesTest, pane_chosen_fadesInWhileTheWindowTakesItsSize)
{
    open();
    const QStringList panes = preferences().toolbarIdentifiers();
    EXPECT_EQ(panes.join(u','),
              u"General,Filters,Appearance,Badges,Dock Icon,Hotkeys,Advanced,Updates"_s);
    EXPECT_EQ(window()->windowTitle(), titleOf(u"General"_s));
    EXPECT_EQ(window()->windowRole(), u"preferences"_s);
    const QRect before = window()->frameGeometry();
    QWidget& general = *preferences().toolbarViews().value(u"General"_s);
    QWidget& updates = *preferences().toolbarViews().value(u"Updates"_s);
    ASSERT_LT(updates.height(), general.height());
    const QRect after = preferences().frameForView(updates);
    EXPECT_EQ(after.topLeft(), before.topLeft());
    EXPECT_EQ(after.height(), before.height() + updates.height() - general.height());

    preferences().getToolbarItems().value(u"General"_s)->click();
    EXPECT_FALSE(preferences().isAnimating()) << "it is shown already";

    preferences().getToolbarItems().value(u"Updates"_s)->click();
    EXPECT_EQ(window()->windowTitle(), titleOf(u"Updates"_s));
    loop.advance(0.125);
    EXPECT_GT(window()->frameGeometry().height(), after.height());
    EXPECT_LT(window()->frameGeometry().height(), before.height());
    loop.advance(0.15);
    EXPECT_FALSE(preferences().isAnimating());
    EXPECT_EQ(window()->frameGeometry(), after);
    EXPECT_EQ(window()->minimumSize(), window()->maximumSize());
    EXPECT_TRUE(updates.isVisible());
    EXPECT_FALSE(general.isVisible());

    // Changing one's mind on the way.
    preferences().displayViewForIdentifier(u"General"_s, true);
    loop.advance(0.1);
    preferences().displayViewForIdentifier(u"Badges"_s, true);
    EXPECT_FALSE(general.isVisible());
    loop.advance(0.3);
    EXPECT_EQ(window()->frameGeometry(),
              preferences().frameForView(*preferences().toolbarViews().value(u"Badges"_s)));

    // Slowly, where that is wanted.
    preferences().setShiftSlowsAnimation(true);
    desk.setModifiers(platform::ModifierFlag::shift);
    preferences().displayViewForIdentifier(u"General"_s, true);
    loop.advance(1.2);
    EXPECT_TRUE(preferences().isAnimating());
    loop.advance(0.1);
    EXPECT_FALSE(preferences().isAnimating());
    EXPECT_EQ(window()->frameGeometry(), before);
}

TEST_F(PreferencesTest, keys_choosePanesAndCloseTheWindow)
{
    open();
    const auto press = [](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(window()->focusWidget() ? window()->focusWidget() : window(), key,
                        modifiers);
    };
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(window()->windowTitle(), titleOf(u"Filters"_s));
    press(Qt::Key_Right);
    EXPECT_EQ(window()->windowTitle(), titleOf(u"Appearance"_s));
    EXPECT_TRUE(preferences().getToolbarItems().value(u"Appearance"_s)->isChecked());
    press(Qt::Key_Tab);
    EXPECT_EQ(window()->focusWidget(), find<QComboBox>(u"previewStyle"_s));
    press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_PageUp, Qt::ControlModifier);
    press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(window()->windowTitle(), titleOf(u"Updates"_s));

    // While panes still move.
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_FALSE(window()->isVisible());
    loop.advance(1);
    EXPECT_FALSE(window()) << "it is given up when it is closed";
    EXPECT_TRUE(preferences().toolbarIdentifiers().isEmpty());
    open();
    EXPECT_EQ(window()->windowTitle(), titleOf(u"General"_s));
    EXPECT_EQ(preferences().toolbarIdentifiers().size(), 8);
    press(Qt::Key_Escape);
    EXPECT_FALSE(window()->isVisible());
    open(); // before it was given up
    loop.advance(1);
    EXPECT_TRUE(window() && window()->isVisible());
}

} // namespace
} // namespace lumbrix::test
