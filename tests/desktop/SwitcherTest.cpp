// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The switchers of window managers, and the row of previews above them.
#include "DesktopTest.h"
#include "Keys.h"

#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

namespace lumbrix::privatedesk
{
namespace
{

DeskOptions under(WindowManager manager, const std::string& name, bool compositor)
{
    DeskOptions options;
    options.name = "switcher_" + name;
    options.dock = DockKind::Tint2;
    options.session.windowManager = manager;
    options.session.compositor = compositor;
    options.session.accessibility = true;
    return options;
}

} // namespace

class SwitcherTest : public DesktopTest
{
protected:
    void SetUp() override
    {
        const QString program =
            QString::fromLatin1(programOf(GetParam().session.windowManager).command);
        if (QStandardPaths::findExecutable(program).isEmpty())
            GTEST_SKIP() << qPrintable(program) << " is not installed";
        // Without them it has no Alt+Tab, or one that shows nothing.
        if (program == u"kwin_x11"_s &&
            (QStandardPaths::findExecutable(u"kglobalaccel5"_s).isEmpty() ||
             !QFileInfo::exists(u"/usr/share/kwin/tabbox"_s)))
            GTEST_SKIP() << "libkf5globalaccel-bin or kwin-addons is not installed";
        DesktopTest::SetUp();
        display().moveTo(QPoint(5, 5));
    }
    void TearDown() override
    {
        if (IsSkipped())
            return;
        display().letGoOfKey(shiftKey);
        display().letGoOfKey(altKey);
        DesktopTest::TearDown();
    }

    void tab() { display().type({tabKey}); }
    /// Opens the switcher, which then selects the window that was active before the present one.
    void open()
    {
        if (GetParam().session.windowManager == WindowManager::KWin)
            openKWins();
        else
            press();
    }
    void letGo() { display().letGoOfKey(altKey); }
    Result isActive(const AppWindow& window)
    {
        return waitUntil([&] { return display().activeWindow() == window.id; });
    }
    void moveOnto(const AppWindow& window)
    {
        const auto panel = preview(window.title);
        ASSERT_TRUE(panel.has_value());
        display().moveTo(panel->geometry.center());
    }

private:
    void press()
    {
        display().holdKey(altKey);
        tab();
    }
    /// It has the keyboard until it has taken its last list away, and keys that come before are
    /// lost. On a busy machine it also goes a step without any list, now and then, or stays.
    void openKWins()
    {
        const auto hasList = [this] { return !display().windowsOf("kwin_x11", "kwin").empty(); };
        const xcb_window_t active = display().activeWindow();
        EXPECT_TRUE(waitUntil([&] { return !hasList(); }));
        press();
        for (int attempt = 1; attempt < 4 && !waitUntil(hasList, 2000); ++attempt) {
            letGo();
            display().request(active, "_NET_ACTIVE_WINDOW", {2, 0, 0});
            EXPECT_TRUE(waitUntil([&] { return display().activeWindow() == active; }));
            press();
        }
    }
};

INSTANTIATE_TEST_SUITE_P(, SwitcherTest,
                         testing::Values(under(WindowManager::Xfwm4, "xfwm4", true),
                                         under(WindowManager::Xfwm4, "xfwm4_plain", false),
                                         under(WindowManager::Openbox, "openbox", false),
                                         under(WindowManager::Marco, "marco", true),
                                         under(WindowManager::KWin, "kwin", true),
                                         under(WindowManager::KWin, "kwin_plain", false)),
                         deskName);

TEST_P(SwitcherTest, row_followsTheSelection_andGoesWithTheSwitcher)
{
    const Application& alpha = launch(u"alpha"_s, 2);
    const Application& beta = launch(u"beta"_s, 1);
    open();
    ASSERT_TRUE(shows(alpha));
    savePicture("opened");
    tab();
    tab();
    ASSERT_TRUE(shows(beta));
    display().type({shiftKey, tabKey});
    ASSERT_TRUE(shows(alpha));
    tab();
    ASSERT_TRUE(shows(beta));
    tab();
    ASSERT_TRUE(shows(alpha));
    letGo();
    EXPECT_TRUE(showsNothing());
    EXPECT_TRUE(isActive(alpha.windows()[1]));

    // The same once more, with nobody to tell which applications there are but the windows.
    desk().dock().kill();
    open();
    ASSERT_TRUE(shows(beta));
    letGo();
    EXPECT_TRUE(showsNothing());
    EXPECT_TRUE(isActive(beta.windows()[0]));
    desk().dock().restart();
}

TEST_P(SwitcherTest, release_picksThePreviewThatTheMouseWasMovedTo)
{
    const Application& alpha = launch(u"alpha"_s, 2);
    const Application& beta = launch(u"beta"_s, 1);
    open();
    ASSERT_TRUE(shows(alpha));
    const QPoint place = preview(alpha.windows()[0].title)->geometry.center();
    display().type({escapeKey});
    letGo();
    ASSERT_TRUE(showsNothing());
    // Where it only lies, as with whoever uses the keyboard alone, it picks nothing.
    display().moveTo(place);
    open();
    ASSERT_TRUE(shows(alpha));
    letGo();
    EXPECT_TRUE(showsNothing());
    EXPECT_TRUE(isActive(alpha.windows()[1]));

    open();
    ASSERT_TRUE(shows(beta));
    tab();
    ASSERT_TRUE(shows(alpha));
    moveOnto(alpha.windows()[1]); // the switcher has selected the other one
    savePicture("hovered");
    letGo();
    EXPECT_TRUE(showsNothing());
    EXPECT_TRUE(isActive(alpha.windows()[1]));
}

TEST_P(SwitcherTest, escape_leavesNothing_alsoWithTheMouseOnAPreview)
{
    const Application& alpha = launch(u"alpha"_s, 2);
    const Application& beta = launch(u"beta"_s, 1);
    for (const bool onPreview : {false, true}) {
        open();
        ASSERT_TRUE(shows(alpha));
        if (onPreview)
            moveOnto(alpha.windows()[0]);
        display().type({escapeKey});
        EXPECT_TRUE(showsNothing());
        letGo();
        EXPECT_TRUE(isActive(beta.windows()[0]));
    }
}

TEST_P(SwitcherTest, click_picksThatWindow_alsoWithAMouseThatLayThere)
{
    const Application& alpha = launch(u"alpha"_s, 2);
    Application& beta = launch(u"beta"_s, 1);
    open();
    ASSERT_TRUE(shows(alpha));
    // The one that the switcher has not selected.
    moveOnto(alpha.windows()[0]);
    display().type({escapeKey});
    letGo();
    ASSERT_TRUE(showsNothing());
    for (const bool layThere : {true, false}) {
        ASSERT_TRUE(isActive(beta.windows()[0]));
        open();
        ASSERT_TRUE(shows(alpha));
        if (!layThere)
            moveOnto(alpha.windows()[1]);
        display().click();
        letGo();
        EXPECT_TRUE(showsNothing());
        EXPECT_TRUE(isActive(alpha.windows()[layThere ? 0 : 1]));
        beta.activate(beta.windows()[0]);
    }
}

TEST_P(SwitcherTest, maximisedWindows_areToldApart)
{
    Application& alpha = launch(u"alpha"_s, 1);
    Application& beta = launch(u"beta"_s, 1);
    Application& gamma = launch(u"gamma"_s, 1);
    for (Application* application : {&alpha, &beta, &gamma})
        application->maximise(application->windows()[0]);
    for (Application* application : {&alpha, &beta, &gamma}) {
        application->activate(application->windows()[0]);
        ASSERT_TRUE(isActive(application->windows()[0]));
    }
    open();
    EXPECT_TRUE(shows(beta));
    tab();
    EXPECT_TRUE(shows(alpha));
    tab();
    EXPECT_TRUE(shows(gamma));
    display().type({shiftKey, tabKey});
    EXPECT_TRUE(shows(alpha));
    letGo();
    EXPECT_TRUE(showsNothing());
    EXPECT_TRUE(isActive(alpha.windows()[0]));
}

} // namespace lumbrix::privatedesk
