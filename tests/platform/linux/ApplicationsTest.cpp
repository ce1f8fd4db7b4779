// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/platform/linux/AdapterFixture.h"

namespace lumbrix::test
{

using namespace platform;

class ApplicationsTest : public AdapterFixture
{
protected:
    ApplicationsTest()
    {
        for (const auto& [notification, name] :
             {std::pair(WorkspaceNotification::DidLaunchApplication, "launch"),
              std::pair(WorkspaceNotification::DidTerminateApplication, "end"),
              std::pair(WorkspaceNotification::DidActivateApplication, "active"),
              std::pair(WorkspaceNotification::ActiveSpaceDidChange, "space"),
              std::pair(WorkspaceNotification::SystemUIModeDidChange, "mode"),
              std::pair(WorkspaceNotification::DockItemsDidChange, "dock"),
              std::pair(WorkspaceNotification::ScreensDidChange, "screens")}) {
            m_subscriptions.push_back(m_workspace.observe(
                notification, [this, what = QString::fromLatin1(name)](std::int32_t pid) {
                    m_log.append(what + QString::number(pid));
                }));
        }
    }
    QString log()
    {
        m_loop.runUntilIdle();
        return std::exchange(m_log, {}).join(u' ');
    }

    QStringList m_log;
    std::vector<std::unique_ptr<WorkspaceSubscription>> m_subscriptions;
};

TEST_F(ApplicationsTest, processes_of_one_group_are_one_application_with_one_stable_pid)
{
    m_programs = {{101, u"/usr/bin/term"_s}, {102, u"/usr/bin/term"_s}};
    m_tracker.add(window(1, u"foo"_s, u"Foo"_s, 101));
    m_tracker.add(window(3, u"bar"_s, u"Bar"_s, 102));
    m_tracker.add(window(5, u"term"_s, u"Term"_s, std::nullopt));
    EXPECT_EQ(log(), u"launch101"_s);
    for (const xcb_window_t id : {1, 3, 5}) {
        EXPECT_EQ(ownerOf(id)->running.pid, 101);
        EXPECT_EQ(ownerOf(id)->running.bundleIdentifier, u"debian-term"_s);
    }
    EXPECT_EQ(ownerOf(1)->running.localizedName, u"Term"_s);
    EXPECT_EQ(ownerOf(1)->running.bundleURL,
              QUrl::fromLocalFile(m_folder.filePath(u"debian-term.desktop"_s)));

    m_tracker.remove(1); // the process that stands for all ends, the others stay
    EXPECT_EQ(ownerOf(5)->running.pid, 101);
    const auto gone = window(1, u"foo"_s, u"Foo"_s, 101);
    m_registry.ownerPidOf(gone); // from an older list; must not bring it back
    m_tracker.remove(3);
    m_tracker.remove(5);
    EXPECT_EQ(log(), u"end101"_s);
    EXPECT_FALSE(m_registry.application(101));
}

TEST_F(ApplicationsTest, applications_of_one_process_have_a_pid_each)
{
    m_programs = {{200, u"/usr/bin/office"_s}};
    m_tracker.add(window(1, u"office"_s, u"office-writer"_s, 200));
    m_tracker.add(window(3, u"office"_s, u"office-calc"_s, 200));
    FakeTracker::Window dialog = window(5, {}, {}, 200, u"Print"_s);
    dialog.transientFor = 3;
    m_tracker.add(dialog);
    EXPECT_EQ(ownerOf(1)->running.pid, 200);
    EXPECT_GE(ownerOf(3)->running.pid, 0x40000000);
    EXPECT_EQ(ownerOf(5)->running.pid, ownerOf(3)->running.pid);
    EXPECT_EQ(ownerOf(3)->running.bundleIdentifier, u"office-calc"_s);
    EXPECT_NE(ownerOf(1)->running.bundleURL, ownerOf(3)->running.bundleURL);

    // The dock and this program keep their own numbers, whatever windows their processes have.
    m_tracker.add(window(7, u"panel"_s, u"Panel"_s, panelPid));
    m_tracker.add(window(9, u"lumbrix"_s, u"Lumbrix"_s, ownPid));
    addPanel();
    EXPECT_GE(ownerOf(7)->running.pid, 0x40000000);
    EXPECT_EQ(ownerOf(9)->running.bundleIdentifier, u"lumbrix"_s);
    EXPECT_EQ(m_workspace.runningApplication(panelPid)->bundleIdentifier, u"com.apple.dock"_s);
}

TEST_F(ApplicationsTest, application_is_found_by_any_entry_of_its_program)
{
    QTemporaryDir elsewhere;
    const auto found = [&](const QTemporaryDir& folder, const char* id, const QByteArray& lines) {
        writeEntry(folder.path(), QString::fromLatin1(id), lines);
        m_loop.advance(5.0);
        const auto application = m_registry.applicationForDesktopFile(
            folder.filePath(QString::fromLatin1(id) + u".desktop"_s));
        return application ? application->running.pid : 0;
    };
    m_tracker.add(window(1, u"editor"_s, u"Editor"_s, 302));
    m_tracker.add(window(3, u"tool"_s, u"Tool"_s, 303));
    EXPECT_EQ(found(m_folder, "pinned-editor", "Name=E\nExec=/usr/bin/editor --new\n"), 302);
    EXPECT_EQ(found(elsewhere, "x", "Name=T\nExec=tool %U\n"), 303);
    EXPECT_EQ(found(elsewhere, "y", "Name=Other\nExec=other\n"), 0);

    // The parts of a suite; one that does not run is not taken for one that does.
    const QByteArray suite = "Exec=office\nStartupWMClass=office-";
    EXPECT_EQ(found(m_folder, "a-writer", "Name=W\n" + suite + "writer\n"), 0);
    m_tracker.add(window(5, u"office"_s, u"office-writer"_s, 304));
    EXPECT_EQ(found(m_folder, "b-calc", "Name=C\n" + suite + "calc\n"), 0);
    EXPECT_EQ(found(m_folder, "a-writer", "Name=W\n" + suite + "writer\n"), 304);
}

TEST_F(ApplicationsTest, program_started_as_it_is_installed_is_known_by_its_entry)
{
    m_tracker.add(window(1, u"a"_s, u"Before"_s, 400));
    writeEntry(m_folder.path(), u"interpreter"_s, "Name=I\nExec=runner\n");
    writeEntry(m_folder.path(), u"org.example.Fresh"_s,
               "Name=Fresh\nExec=runner fresh\nStartupWMClass=Fresh\n");
    m_programs = {{401, u"/usr/bin/runner"_s}};
    m_tracker.add(window(3, u"fresh"_s, u"Fresh"_s, 401));
    EXPECT_EQ(ownerOf(3)->running.bundleIdentifier, u"org.example.Fresh"_s);
}

TEST_F(ApplicationsTest, roles_are_known_by_entry_program_or_class)
{
    const auto urlOf = [this](const char* id) {
        return QUrl::fromLocalFile(m_folder.filePath(QString::fromLatin1(id) + u".desktop"_s));
    };
    writeEntry(m_folder.path(), u"org.gnome.Rhythmbox3"_s, "Name=Rhythmbox\nExec=rhythmbox %U\n");
    writeEntry(m_folder.path(), u"my-films"_s, "Name=Films\nExec=env A=b vlc %U\n");
    writeEntry(m_folder.path(), u"evolution-calendar"_s,
               "Name=Calendar\nExec=evolution --component=calendar\n");
    m_loop.advance(5.0);
    EXPECT_EQ(m_workspace.roleOfApplication(urlOf("org.gnome.Rhythmbox3")),
              ApplicationRole::MusicPlayer);
    EXPECT_EQ(m_workspace.roleOfApplication(urlOf("my-films")), ApplicationRole::VLC);
    EXPECT_EQ(m_workspace.roleOfApplication(urlOf("evolution-calendar")),
              ApplicationRole::Calendar);
    EXPECT_EQ(m_workspace.roleOfApplication(urlOf("debian-term")), ApplicationRole::Other);
    EXPECT_EQ(m_workspace.roleOfApplication({}), ApplicationRole::Other);

    m_programs = {{401, u"/opt/mail/thunderbird"_s}};
    m_tracker.add(window(1, u"rhythmbox"_s, u"Rhythmbox"_s, 400));
    m_tracker.add(window(3, u"Mail"_s, u"post"_s, 401));
    m_tracker.add(window(5, u"gl"_s, u"mpv"_s, 402));
    m_tracker.add(window(7, u"keepassxc"_s, u"KeePassXC"_s, 403));
    EXPECT_EQ(ownerOf(7)->running.role, ApplicationRole::PasswordManager);
    EXPECT_EQ(ownerOf(1)->running.role, ApplicationRole::MusicPlayer);
    EXPECT_EQ(ownerOf(3)->running.role, ApplicationRole::Mail);
    EXPECT_EQ(ownerOf(5)->running.role, ApplicationRole::MoviePlayer);
    EXPECT_EQ(m_workspace.roleOfApplication(ownerOf(5)->running.bundleURL),
              ApplicationRole::MoviePlayer);
}

TEST_F(ApplicationsTest, regular_applications_are_those_that_task_bars_show)
{
    FakeTracker::Window applet = window(1, u"applet"_s, u"Applet"_s, 300);
    applet.skipTaskbar = true;
    m_tracker.add(applet);
    FakeTracker::Window wallpaper = window(3, u"d"_s, u"D"_s, 301);
    wallpaper.type = x11::WindowType::Desktop;
    m_tracker.add(wallpaper);
    m_tracker.add(window(5, u"editor"_s, u"Editor"_s, 302));
    EXPECT_EQ(m_workspace.launchedApplications(), std::vector<std::int32_t>{302});
    EXPECT_TRUE(m_workspace.runningApplication(300));
    EXPECT_FALSE(m_workspace.runningApplication(301));
    EXPECT_TRUE(m_workspace.runningApplication(ownPid));
    m_tracker.change(1, [](auto& window) { window.skipTaskbar = false; });
    EXPECT_EQ(m_workspace.launchedApplications().size(), 2U);
}

TEST_F(ApplicationsTest, hiding_makes_all_windows_iconic_until_one_is_shown)
{
    m_tracker.add(window(1, u"editor"_s, u"Editor"_s, 302));
    m_tracker.add(window(3, u"editor"_s, u"Editor"_s, 302));
    m_tracker.add(window(5, u"editor"_s, u"Editor"_s, 302));
    m_tracker.iconify(5); // by the user, before
    m_workspace.hide(302);
    EXPECT_TRUE(m_workspace.isHidden(302));
    EXPECT_TRUE(m_tracker.window(1)->isIconic && m_tracker.window(3)->isIconic);
    m_workspace.unhide(302);
    EXPECT_FALSE(m_workspace.isHidden(302));
    EXPECT_FALSE(m_tracker.window(1)->isIconic || m_tracker.window(3)->isIconic);
    EXPECT_TRUE(m_tracker.window(5)->isIconic);

    m_workspace.hide(302);
    m_tracker.deiconify(3);
    EXPECT_FALSE(m_workspace.isHidden(302));
    m_tracker.refuseIconify();
    m_tracker.deiconify(1);
    m_workspace.hide(302);
    EXPECT_TRUE(m_workspace.isHidden(302)); // under way
    m_loop.advance(2.0);
    EXPECT_FALSE(m_workspace.isHidden(302));
}

TEST_F(ApplicationsTest, raising_a_window_and_activating_its_application_is_one_activation)
{
    m_tracker.add(window(1, u"editor"_s, u"Editor"_s, 302));
    FakeTracker::Window away = window(3, u"editor"_s, u"Editor"_s, 302);
    away.desktop = 2;
    away.isIconic = true;
    m_tracker.add(away);
    m_tracker.add(window(5, u"term"_s, u"Term"_s, 101));
    m_tracker.setActive(5);
    const ElementRef element = X11Element::window(3);
    const auto raise = [&] {
        for (int i = 0; i < 2; ++i) {
            m_accessibility.setAttributeValue(element, u"AXFrontmost"_s, true);
            m_accessibility.setAttributeValue(element, u"AXFocused"_s, true);
            m_accessibility.performAction(element, u"AXRaise"_s);
            m_workspace.activate(302, activateIgnoringOtherApps);
        }
    };
    raise();
    EXPECT_EQ(m_tracker.activations(), 1);
    EXPECT_EQ(m_tracker.activeWindow(), 3U);
    EXPECT_FALSE(m_tracker.window(3)->isIconic);
    EXPECT_EQ(log(), u"launch302 launch101 active101 space0 active302"_s);

    m_loop.advance(1.0);
    m_workspace.activate(101, 0);
    EXPECT_EQ(m_tracker.activeWindow(), 5U);
    m_workspace.activate(302, 0); // the one on this desktop comes before the one elsewhere
    EXPECT_EQ(m_tracker.activeWindow(), 1U);
    m_workspace.activate(302, 0);
    EXPECT_EQ(m_tracker.activations(), 3);
    m_loop.advance(1.0);
    raise();
    EXPECT_EQ(m_tracker.activations(), 4);
    EXPECT_EQ(m_tracker.activeWindow(), 3U);
}

TEST_F(ApplicationsTest, launching_what_runs_brings_forward_no_other_program_of_its_interpreter)
{
    writeEntry(m_folder.path(), u"org.gnome.Lollypop"_s, "Name=L\nExec=lollypop\n");
    m_loop.advance(5.0);
    m_programs = {
        {101, u"/no/such/python3"_s}, {302, u"/no/such/python3"_s}, {400, u"/no/such/player"_s}};
    m_tracker.add(window(1, u"tool"_s, u"Tool"_s, 101));
    m_tracker.add(window(3, u"lollypop"_s, u"Lollypop"_s, 302));
    m_tracker.add(window(5, u"player"_s, u"Player"_s, 400));
    const auto activeAfter = [this](const QUrl& url) {
        m_loop.advance(1.0);
        m_tracker.setActive(XCB_NONE);
        const bool isDone = m_workspace.launchApplicationAtURL(url, LaunchOption::async);
        EXPECT_EQ(isDone, m_tracker.activeWindow() != XCB_NONE);
        return m_tracker.activeWindow();
    };
    for (const xcb_window_t id : {1U, 3U, 5U})
        EXPECT_EQ(activeAfter(ownerOf(id)->running.bundleURL), id);
    EXPECT_EQ(activeAfter(ownerOf(5)->running.executableURL), 5U);
    EXPECT_EQ(activeAfter(ownerOf(1)->running.executableURL), 0U);
    EXPECT_EQ(activeAfter({}), 0U);
}

TEST_F(ApplicationsTest, terminate_closes_windows_but_never_the_dock_or_this_program)
{
    addPanel();
    m_tracker.add(window(1, u"editor"_s, u"Editor"_s, 302));
    m_tracker.add(window(9, u"lumbrix"_s, u"Lumbrix"_s, ownPid));
    for (const std::int32_t pid : {302, panelPid, ownPid, 12345})
        m_workspace.terminate(pid);
    EXPECT_FALSE(m_tracker.window(1));
    EXPECT_TRUE(m_tracker.window(9));
    EXPECT_TRUE(m_tracker.window(panelWindow));
}

TEST_F(ApplicationsTest, observer_that_ends_another_subscription_is_the_last_one_called)
{
    std::unique_ptr<WorkspaceSubscription> second;
    int calls = 0;
    const auto first = m_workspace.observe(WorkspaceNotification::ActiveSpaceDidChange,
                                           [&](std::int32_t) { second.reset(); });
    second = m_workspace.observe(WorkspaceNotification::ActiveSpaceDidChange,
                                 [&](std::int32_t) { ++calls; });
    m_tracker.setCurrentDesktop(1);
    m_loop.runUntilIdle();
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(second);
}

TEST_F(ApplicationsTest, mode_is_full_screen_while_the_active_window_covers_the_main_screen)
{
    m_tracker.add(window(1, u"a"_s, u"A"_s, 100));
    m_tracker.add(window(2, u"b"_s, u"B"_s, 200));
    m_tracker.setActive(1);
    log();
    const auto change = [this](xcb_window_t id, bool isFull, const QRect& bounds) {
        m_tracker.change(id, [&](auto& window) {
            window.isFullscreen = isFull;
            window.bounds = bounds;
        });
        return log() + QString::number(m_workspace.systemUIMode());
    };
    const QRect other(1280, 0, 1280, 800);
    EXPECT_EQ(change(1, true, other), u"0"_s) << "of another screen";
    EXPECT_EQ(change(1, true, m_mainScreen), u"mode03"_s);
    EXPECT_EQ(change(1, true, m_mainScreen.united(other)), u"3"_s);
    m_tracker.setActive(2);
    EXPECT_EQ(log(), u"active200 mode0"_s) << "it is below the dock now";
    EXPECT_EQ(m_workspace.systemUIMode(), 0U);
    m_tracker.setActive(1);
    EXPECT_EQ(log(), u"active100 mode0"_s);
    // Neither a dialog nor the loss of the focus puts the dock above it; another desktop does.
    FakeTracker::Window dialog = window(3, u"a"_s, u"A"_s, 100);
    dialog.transientFor = 1;
    m_tracker.add(dialog);
    for (const xcb_window_t active : {3U, 0U})
        m_tracker.setActive(active);
    EXPECT_FALSE(log().contains(u"mode"_s)) << m_workspace.systemUIMode();
    m_tracker.change(1, [](auto& window) { window.desktop = 0; });
    m_tracker.setCurrentDesktop(1);
    EXPECT_TRUE(log().contains(u"mode0"_s));
    m_tracker.setCurrentDesktop(0);
    EXPECT_EQ(m_workspace.systemUIMode(), 3U);
    m_tracker.remove(1);
    EXPECT_TRUE(log().contains(u"mode0"_s));
    EXPECT_EQ(m_workspace.systemUIMode(), 0U);
}

} // namespace lumbrix::test
