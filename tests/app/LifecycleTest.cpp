// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Start and end of the program, its status menu, and the questions it asks.
#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMenu>

#include "app/SenderTitles.h"
#include "app/StatusItem.h"
#include "model/SGKeyCombo.h"
#include "tests/app/AppFixture.h"

namespace lumbrix::test
{
namespace
{

QString textOf(const QWidget& alert, const QString& label)
{
    return alert.findChild<QLabel*>(label)->text();
}

QStringList buttonsOf(const QWidget& alert)
{
    QStringList titles;
    for (const QAbstractButton* button : alert.findChildren<QAbstractButton*>())
        titles << button->text();
    return titles;
}

void press(const QWidget& alert, const QString& title)
{
    for (QAbstractButton* button : alert.findChildren<QAbstractButton*>())
        if (button->text() == title)
            return button->click();
    FAIL() << "no button " << qPrintable(title);
}

/// Presses a button of the alert that comes up next.
void answerNext(const QString& title)
{
    QTimer::singleShot(0, qApp, [title] {
        if (const QWidget* alert = QApplication::activeModalWidget())
            press(*alert, title);
        else
            answerNext(title);
    });
}

bool quitsBy(const std::function<void()>& action)
{
    constexpr int stillRunning = 7;
    const QObject context; // nothing is left for the next loop
    QTimer::singleShot(0, &context, [&] {
        action();
        QTimer::singleShot(0, &context, [] { QCoreApplication::exit(stillRunning); });
    });
    return QCoreApplication::exec() == 0;
}

class LifecycleTest : public AppFixture
{
protected:
    /// As a user who has seen the welcome.
    void startAgain()
    {
        defaults.setBool(true, u"firstRun"_s);
        start();
    }
    /// The sheet on the preferences; null when there is none.
    static QWidget* sheet()
    {
        QWidget* window = PrefsController::openWindow();
        return window ? window->findChild<QWidget*>(u"alert"_s) : nullptr;
    }
    static void answerSheet(const QString& title)
    {
        ASSERT_TRUE(sheet());
        press(*sheet(), title);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(sheet());
    }
    QStringList menuTexts()
    {
        QStringList texts;
        for (const QAction* action : controller->statusItem()->menu().actions())
            texts << (action->isSeparator() ? u"-"_s : action->text());
        return texts;
    }
};

TEST_F(LifecycleTest, newUser_start_isWelcomedOnThePreferencesOnce)
{
    // The first look at the settings, before they have values, threw it away.
    const QString older = desk.applicationBundle().path() + u" --as-the-user-likes"_s;
    desk.loginItems().insert(older);
    start();
    ASSERT_TRUE(sheet());
    EXPECT_EQ(sheet()->windowTitle(), u"Lumbrix"_s);
    EXPECT_EQ(textOf(*sheet(), u"messageText"_s), u"Welcome to Lumbrix!"_s);
    const QString text = textOf(*sheet(), u"informativeText"_s);
    EXPECT_EQ(text.count(u"\n\n"_s), 5);
    EXPECT_TRUE(text.contains(u"hold Super and press the number"_s));
    EXPECT_TRUE(
        text.endsWith(u"uncheck “Start at login” in the General pane of these preferences."_s));
    EXPECT_TRUE(text.startsWith(u"Hello there! You can now hover"_s));
    EXPECT_TRUE(text.contains(u"previews for it. \n\nThis is usually"_s));
    EXPECT_EQ(buttonsOf(*sheet()), QStringList{u"Okay"_s});
    answerSheet(u"Okay"_s);
    EXPECT_EQ(desk.loginItems().paths, (QStringList{older, desk.applicationBundle().path()}));

    defaults.setInteger(0, u"startAtLogin"_s);
    controller->updateState();
    EXPECT_TRUE(desk.loginItems().paths.empty());
    controller->applicationDidFinishLaunching();
    EXPECT_FALSE(sheet());

    // Of one in its build folder nothing is kept that starts it.
    controller->applicationWillTerminate();
    desk.applicationBundle().installed = false;
    defaults.setBool(false, u"firstRun"_s);
    start();
    EXPECT_FALSE(textOf(*sheet(), u"informativeText"_s).contains(u"log in"_s));
    EXPECT_TRUE(desk.loginItems().paths.empty());
    EXPECT_FALSE(find<QCheckBox>(u"startAtLogin"_s)->isEnabled());
}

TEST_F(LifecycleTest, windowsThatCannotBeSeen_areToldOnce_afterTheWelcome)
{
    startAgain();
    EXPECT_FALSE(sheet()) << "all can";
    controller->applicationWillTerminate();
    desk.windowServer().unseen = u"Only some."_s;
    defaults.setBool(false, u"firstRun"_s);
    for (const bool isWelcomed : {true, false}) {
        start();
        ASSERT_TRUE(sheet());
        if (isWelcomed) {
            press(*sheet(), u"Okay"_s);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        ASSERT_TRUE(sheet());
        EXPECT_EQ(textOf(*sheet(), u"informativeText"_s), u"Only some."_s);
        answerSheet(u"Okay"_s);
        controller->applicationWillTerminate();
        start();
        EXPECT_FALSE(sheet());
        controller->applicationWillTerminate();
        defaults.removeObjectForKey(u"toldOfUnseenWindows"_s);
    }
    start();
}

TEST_F(LifecycleTest, statusMenu_tellsWhatItsItemsDo)
{
    defaults.setDictionary(SGKeyCombo{35, 0x900}.plistRepresentation(), u"enableDisableKey"_s);
    desk.keyboardLayout().choose({{35, u"&"_s}});
    startAgain();
    const QStringList enabled = menuTexts();
    const QString key = enabled.front().section(u'\t', 1);
    EXPECT_TRUE(key.endsWith(u"+&&"_s)) << qPrintable(key);
    const QStringList rest{u"-"_s, u"Preferences"_s, u"About"_s, u"-"_s, u"Quit"_s};
    EXPECT_EQ(enabled, QStringList{u"Disable\t"_s + key} + rest);
    EXPECT_EQ(controller->statusItem()->image(), u"menuIcon"_s);
    const auto items = controller->statusItem()->menu().actions();

    items.front()->trigger();
    EXPECT_EQ(defaults.integerForKey(u"disabled"_s), 1);
    EXPECT_EQ(menuTexts(), QStringList{u"Enable\t"_s + key} + rest);
    EXPECT_EQ(controller->statusItem()->image(), u"menuIconDisabled"_s);
    defaults.setInteger(1, u"monoChrome"_s);
    controller->updateState();
    EXPECT_EQ(controller->statusItem()->image(), u"menuIconMonoDisabled"_s);
    defaults.removeObjectForKey(u"enableDisableKey"_s);
    items.front()->trigger();
    EXPECT_EQ(menuTexts(), QStringList{u"Disable"_s} + rest);
    EXPECT_EQ(controller->statusItem()->image(), u"menuIconMono"_s);

    for (const bool byReopening : {false, true}) {
        byReopening ? void(controller->applicationShouldHandleReopen()) : items[2]->trigger();
        ASSERT_TRUE(PrefsController::openWindow());
        PrefsController::openWindow()->close();
        loop.runUntilIdle();
    }
    EXPECT_TRUE(quitsBy([&] { items[5]->trigger(); }));
}

TEST_F(LifecycleTest, dockIcon_changed_takesARelaunchOrIsTakenBack)
{
    startAgain();
    controller->showPreferences();
    defaults.setInteger(1, u"showIconInDock"_s);
    controller->updateState(SenderTitle::ShowIconInDock);
    ASSERT_TRUE(sheet());
    EXPECT_EQ(textOf(*sheet(), u"messageText"_s), u"Relaunch required"_s);
    answerSheet(u"Cancel"_s);
    EXPECT_EQ(defaults.integerForKey(u"showIconInDock"_s), 0);
    EXPECT_FALSE(desk.applicationBundle().showsInDockNextTime);
    EXPECT_EQ(desk.applicationBundle().relaunches, 0);

    // Nothing to start it again with: no later start has the preferences in the user's way.
    desk.applicationBundle().canRelaunch = false;
    defaults.setInteger(1, u"showIconInDock"_s);
    controller->updateState(SenderTitle::ShowIconInDock);
    EXPECT_FALSE(quitsBy([] { press(*sheet(), u"Apply and Relaunch"_s); }));
    ASSERT_TRUE(sheet());
    EXPECT_EQ(textOf(*sheet(), u"messageText"_s), u"Lumbrix could not be relaunched"_s);
    answerSheet(u"Okay"_s);
    EXPECT_TRUE(desk.applicationBundle().showsInDockNextTime);
    EXPECT_FALSE(defaults.boolForKey(u"relaunchedForIcon"_s));
    EXPECT_FALSE(defaults.hasUnsavedChanges());

    desk.applicationBundle().canRelaunch = true;
    controller->updateState(SenderTitle::ShowIconInDock);
    EXPECT_TRUE(quitsBy([] { answerSheet(u"Apply and Relaunch"_s); }));
    EXPECT_TRUE(desk.applicationBundle().showsInDockNextTime);
    EXPECT_EQ(desk.applicationBundle().relaunches, 1);
    EXPECT_TRUE(defaults.boolForKey(u"relaunchedForIcon"_s));
    EXPECT_FALSE(defaults.hasUnsavedChanges());
}

TEST_F(LifecycleTest, dockIcon_on_keepsAWindowWhereDocksShowWindows)
{
    defaults.setInteger(1, u"showIconInDock"_s);
    defaults.setBool(true, u"relaunchedForIcon"_s);
    desk.applicationBundle().shownByWindows = true;
    startAgain();
    EXPECT_TRUE(desk.applicationBundle().isForeground);
    EXPECT_FALSE(defaults.boolForKey(u"relaunchedForIcon"_s));
    EXPECT_EQ(PrefsController::sharedPrefsWindowController().currentIdentifier(), u"Dock Icon"_s);
    EXPECT_FALSE(PrefsController::openWindow()->isMinimized());

    PrefsController::openWindow()->close();
    loop.runUntilIdle();
    ASSERT_TRUE(PrefsController::openWindow());
    EXPECT_TRUE(PrefsController::openWindow()->isMinimized());
    controller->showPreferences();
    EXPECT_FALSE(PrefsController::openWindow()->isMinimized());
}

TEST_F(LifecycleTest, alert_withSuppression_hasACheckboxOfThatText)
{
    for (const QString& text : {QString(), u"Spare me"_s}) {
        QWidget window;
        LumbrixController::createAlert(u"Title"_s, u"Text"_s, {u"Okay"_s}, true, text)
            ->beginSheetModalForWindow(window);
        const QString usual = u"Do not show this message again"_s;
        EXPECT_EQ(buttonsOf(window).count(text.isNull() ? usual : text), 1);
    }
}

TEST_F(LifecycleTest, access_missing_canBeGivenOrRefused)
{
    const auto setEnabled = [this](bool on) {
        desk.with([on](SimulatedState& state) { state.isAccessibilityEnabled = on; });
    };
    setEnabled(false);
    const auto isRefused = [this] {
        controller.emplace();
        return quitsBy([this] { EXPECT_FALSE(controller->awakeFromNib()); });
    };
    QTimer::singleShot(0, qApp, [] {
        QTimer::singleShot(0, qApp, [] {
            ASSERT_TRUE(QApplication::activeModalWidget());
            const QWidget& alert = *QApplication::activeModalWidget();
            EXPECT_EQ(textOf(alert, u"messageText"_s), u"Error"_s);
            const QString text = textOf(alert, u"informativeText"_s);
            EXPECT_TRUE(
                text.startsWith(u"You need to enable support for assistive devices.\n\n"_s));
            EXPECT_TRUE(text.endsWith(u"\n\nIf you want, Lumbrix can enable it for you."_s));
            press(alert, u"Quit"_s);
        });
    });
    EXPECT_TRUE(isRefused());
    EXPECT_EQ(loop.now(), 0);

    // Nobody gives it.
    desk.with([](SimulatedState& state) { state.isAccessibilityGranted = false; });
    answerNext(u"Enable"_s);
    EXPECT_TRUE(isRefused());
    EXPECT_NEAR(loop.now(), 40, 1e-6);
    EXPECT_EQ(desk.accessibility().preferencesOpened, 1);

    // The user does, in the system's settings.
    loop.detachThread("user", [&](const platform::Thread&) {
        loop.sleep(10);
        setEnabled(true);
    });
    controller.emplace();
    answerNext(u"Enable"_s);
    start();
    EXPECT_NEAR(loop.now(), 50, 0.51);
    EXPECT_FLOAT_EQ(desk.accessibility().messagingTimeout, 0.2F);
}

} // namespace
} // namespace lumbrix::test
