// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What other programs do to Lumbrix, and what it leaves behind.
#include "DesktopTest.h"

#include <QtCore/QProcess>

#include <csignal>

#include <sys/wait.h>

namespace lumbrix::privatedesk
{

using SurvivalTest = DesktopTest;

INSTANTIATE_TEST_SUITE_P(, SurvivalTest, testing::Values(plank(), tint2(), xfcePanel()), deskName);

TEST_P(SurvivalTest, compositor_busyWhilePanelsComeAndGo_stillDrawsThem)
{
    const Application& alpha = launch(u"alpha"_s, 3);
    ASSERT_TRUE(hoverShows(alpha));
    ASSERT_TRUE(parkShowsNothing());
    const auto icon = desk().iconOf(alpha);
    ASSERT_TRUE(icon);
    // It learns of it all at once: panels that were painted, left, and came back painted.
    Process& windowManager = desk().session().windowManager();
    windowManager.signal(SIGSTOP);
    bool allCame = true;
    for (int i = 0; i < 2; ++i) {
        desk().park();
        allCame = allCame && showsNothing();
        display().moveTo(*icon);
        allCame = allCame && waitUntil([&] { return display().previews().size() == 3; });
    }
    windowManager.signal(SIGCONT);
    EXPECT_TRUE(allCame);
    EXPECT_TRUE(shows(alpha));
}

TEST_P(SurvivalTest, corners_roundedOff_showTheWallpaper)
{
    desk().startLumbrix({{u"shouldBubbleWrap"_s, u"0"_s}});
    const Application& alpha = launch(u"alpha"_s, 1);
    const QImage before = display().picture();
    ASSERT_TRUE(hoverShows(alpha));
    const QImage after = display().picture();
    const QRect area = display().previews().front().geometry;
    for (const QPoint corner :
         {area.topLeft(), area.topRight(), area.bottomLeft(), area.bottomRight()})
        EXPECT_EQ(after.pixel(corner), before.pixel(corner))
            << "at " << corner.x() << ',' << corner.y();
    EXPECT_NE(after.pixel(area.center()), before.pixel(area.center()));
}

TEST(LumbrixProgram, display_missing_isNeededForPreviewsOnly)
{
    const auto run = [](const QStringList& arguments, const QString& wayland = {}) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(u"DISPLAY"_s);
        environment.insert(u"WAYLAND_DISPLAY"_s, wayland);
        environment.insert(u"QT_QPA_PLATFORM"_s, wayland.isEmpty() ? u""_s : u"wayland"_s);
        process.setProcessEnvironment(environment);
        process.setProcessChannelMode(QProcess::MergedChannels);
        process.start(lumbrixBinary(), arguments);
        process.waitForFinished(static_cast<int>(patience(5000).count()));
        return std::pair(process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                         process.readAll());
    };
    EXPECT_EQ(run({u"--version"_s}).first, 0);
    EXPECT_TRUE(run({u"--version"_s}).second.startsWith("lumbrix "));
    EXPECT_EQ(run({u"--help"_s}).first, 0);
    EXPECT_TRUE(run({u"--help"_s}).second.contains("Usage"));
    for (const QStringList& arguments : {QStringList(), QStringList(u"--inspect"_s)}) {
        const auto [status, complaint] = run(arguments);
        EXPECT_EQ(status, 1) << "it must fail, not crash";
        EXPECT_TRUE(complaint.startsWith("lumbrix: ")) << complaint.constData();
    }
    EXPECT_EQ(run({}, u"wayland-0"_s).first, 1);
    EXPECT_TRUE(run({}, u"wayland-0"_s).second.startsWith("lumbrix: this Wayland session has no"));
    EXPECT_EQ(run({u"--inspect"_s, u"what"_s}).first, 2);
    EXPECT_EQ(run({u"--verbose=hover,what"_s}).first, 2);
    EXPECT_TRUE(run({u"--verbose=session,titles"_s}).second.startsWith("lumbrix: no X display"));
}

// Whatever is missing, it starts or ends, and says what in one sentence.
TEST(LumbrixProgram, desktop_degraded_isToldInASentence)
{
    using enum WindowManager;
    const struct {
        const char* withoutExtension;
        WindowManager windowManager;
        QString environment; ///< a variable and its value; empty without one
        QStringList said;    ///< a line each, or the beginning of one
        bool runs = true;
    } rows[] = {
        {"", Openbox, u"LC_ALL=C"_s, {}},
        {"MIT-SHM", Openbox, {}, {}},
        {"", Absent, {}, {u"there is no window manager: "_s}},
        {"",
         Openbox,
         u"DBUS_SESSION_BUS_ADDRESS=unix:path=/none"_s,
         {u"there is no session bus: "_s}},
        {"RANDR", Openbox, {}, {u"the X server lacks the extension RANDR: "_s}},
        {"", Openbox, u"XDG_CONFIG_HOME=/proc/none"_s, {u"the settings in /proc/none/"_s}},
        {"Composite", Absent, {}, {u"the X server lacks the extension Composite, which"_s}, false},
        {"DAMAGE", Absent, {}, {u"the X server lacks the extension DAMAGE, "_s}, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.withoutExtension + row.environment.toStdString());
        SessionOptions options{{800, 600}, row.windowManager};
        options.withoutExtension = QString::fromLatin1(row.withoutExtension);
        Session session(options);
        QStringList command{lumbrixBinary()};
        if (!row.environment.isEmpty())
            command.prepend(row.environment);
        const auto lumbrix = session.start(u"lumbrix"_s, u"env"_s, command);
        // The first time it shows its preferences; what it has to say comes before or with them.
        const auto isReady = [&] {
            return session.log(u"lumbrix"_s).count(u'\n') >= row.said.size() &&
                   (row.windowManager == WindowManager::Absent ||
                    !session.display().managedWindows().empty());
        };
        if (row.runs) {
            EXPECT_TRUE(session.display().waitFor(isReady, patience(15000)));
            lumbrix->signal(SIGTERM);
        }
        const auto status = lumbrix->waitForExit(patience(10000));
        EXPECT_EQ(status, std::optional(row.runs ? 0 : W_EXITCODE(1, 0)));
        QStringList lines = session.log(u"lumbrix"_s).split(u'\n', Qt::SkipEmptyParts);
        lines.sort();
        ASSERT_EQ(lines.size(), row.said.size()) << qPrintable(lines.join(u'\n'));
        for (qsizetype i = 0; i < lines.size(); ++i)
            EXPECT_TRUE(lines[i].startsWith(u"lumbrix: "_s + row.said[i])) << qPrintable(lines[i]);
    }
}

TEST(LumbrixProgram, display_goesAway_endsItInWords)
{
    for (const bool hasWindows : {true, false}) {
        SCOPED_TRACE(hasWindows);
        Session session({{800, 600}, WindowManager::Openbox});
        Display& display = session.display();
        // The first time, with its preferences and a sheet on them.
        const auto lumbrix = session.start(u"lumbrix"_s, lumbrixBinary());
        ASSERT_TRUE(
            display.waitFor([&] { return display.managedWindows().size() == 2; }, patience(10000)))
            << qPrintable(session.logs());
        const auto areClosed = [&] {
            for (const Panel& window : display.managedWindows())
                display.request(window.id, "_NET_CLOSE_WINDOW", {0, 2});
            return display.managedWindows().empty();
        };
        ASSERT_TRUE(hasWindows || display.waitFor(areClosed, patience(10000)));
        session.server().signal(SIGKILL);
        const auto status = lumbrix->waitForExit(patience(5000));
        ASSERT_TRUE(status);
        EXPECT_TRUE(WIFEXITED(*status)) << *status;
        EXPECT_EQ(WEXITSTATUS(*status), 1);
        // Once; the toolkit and the X library may add a line of theirs, whoever notices first.
        const QString log = session.log(u"lumbrix"_s);
        EXPECT_EQ(log.count(u"lumbrix: the display has gone away\n"_s), 1) << qPrintable(log);
    }
}

} // namespace lumbrix::privatedesk
