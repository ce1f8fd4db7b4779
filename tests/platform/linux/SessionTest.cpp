// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QtCore/QDateTime>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>

#include "platform/StringLiterals.h"
#include "platform/linux/applications/DesktopEntry.h"
#include "platform/linux/session/AutostartItems.h"
#include "platform/linux/session/ProgramBundle.h"
#include "platform/linux/x11/WaylandSession.h"
#include "tests/support/Files.h"

namespace lumbrix::platform
{
namespace
{

using test::readFile;
using test::writeFile;

class AutostartTest : public testing::Test
{
protected:
    AutostartTest()
    {
        writeFile(program, "#!/bin/sh\n");
        QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);
    }

    QTemporaryDir home;
    const QString folder = home.filePath(u"config/autostart"_s);
    const QString item = folder + u"/lumbrix.desktop"_s;
    const QString program = home.filePath(u"bin/lum $br\\ix 100%\nHidden=true"_s);
    AutostartItems items{folder};
};

TEST_F(AutostartTest, new_item_starts_a_program_of_any_name)
{
    items.insert(program);
    bool isHidden = false;
    const auto entry = parseDesktopEntry(readFile(item), u"lumbrix"_s, item, {}, isHidden);
    ASSERT_TRUE(entry);
    EXPECT_EQ(execArguments(entry->exec), QStringList{program});
}

TEST_F(AutostartTest, item_that_is_right_is_not_written_and_an_edited_one_keeps_what_it_says)
{
    const QByteArray edited = "# mine\n[Desktop Entry]\nType=Application\nName=Lumbrix\n"
                              "X-GNOME-Autostart-enabled=false\nHidden=true\nExec=";
    const QByteArray own = edited + "sh -c 'sleep 5; \"/opt/lumbrix\"'\n";
    writeFile(item, own);
    const QDateTime before(QDate(2020, 1, 1), QTime(12, 0));
    {
        QFile file(item);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(file.setFileTime(before, QFileDevice::FileModificationTime));
    }
    items.insert(u"/opt/lumbrix"_s);
    EXPECT_EQ(readFile(item), own);
    EXPECT_EQ(QFileInfo(item).lastModified(), before);

    items.insert(u"/usr/bin/lumbrix"_s);
    EXPECT_EQ(readFile(item), edited + "/usr/bin/lumbrix\n");
    writeFile(item, "no desktop entry");
    items.insert(u"/usr/bin/lumbrix"_s);
    EXPECT_TRUE(readFile(item).contains("\nExec=/usr/bin/lumbrix\n"));
}

TEST_F(AutostartTest, item_that_cannot_be_written_is_told_once)
{
    testing::internal::CaptureStderr();
    for (int i = 0; i < 2; ++i)
        AutostartItems(u"/proc/none"_s).insert(program);
    const QString said = QString::fromStdString(testing::internal::GetCapturedStderr());
    EXPECT_EQ(said.count(u"the autostart entry /proc/none/lumbrix.desktop cannot be saved: "_s), 1);
    EXPECT_TRUE(ProgramBundle().isInstalled()) << "its folder is none that was built in";
}

TEST_F(AutostartTest, removed_program_is_started_by_no_item_and_others_stay)
{
    items.remove(program); // nothing there
    items.insert(program);
    const QByteArray others =
        "[Desktop Entry]\nType=Application\nName=Other\nExec=/usr/bin/other\n";
    const QString other = folder + u"/other.desktop"_s;
    const QString again = folder + u"/again.desktop"_s;
    writeFile(other, others);
    QFile::copy(item, again);
    items.remove(program);
    items.remove(u"/usr/bin/oth"_s);
    items.remove(QString());
    EXPECT_FALSE(QFile::exists(item));
    EXPECT_FALSE(QFile::exists(again));
    EXPECT_EQ(readFile(other), others);
}

TEST(WaylandSessionTest, server_isTakenForOne_whereTheSessionAndTheServerSaySo)
{
    const QString wayland = u"wayland"_s;
    const QString display = u"wayland-0"_s;
    const QStringList own{u"eDP-1"_s, u"XWAYLAND0"_s};
    const QStringList real{u"eDP-1"_s, u"HDMI-1"_s};
    EXPECT_TRUE(x11::isOfWaylandSession({wayland, {}, false, own}));
    EXPECT_TRUE(x11::isOfWaylandSession({{}, display, false, own}));
    EXPECT_TRUE(x11::isOfWaylandSession({u"tty"_s, display, true, real}));
    EXPECT_FALSE(x11::isOfWaylandSession({wayland, display, false, real})) << "a nested server";
    EXPECT_FALSE(x11::isOfWaylandSession({wayland, display, false, {}}));
    EXPECT_FALSE(x11::isOfWaylandSession({u"x11"_s, {}, true, own}));
}

TEST(RelaunchTest, program_is_started_once_the_other_process_has_ended)
{
    QTemporaryDir folder;
    const QString result = folder.filePath(u"result"_s);
    const QString program = folder.filePath(u"program"_s);
    QProcess former;
    former.start(u"cat"_s);
    ASSERT_TRUE(former.waitForStarted());
    const QByteArray pid = QByteArray::number(former.processId());
    writeFile(program, "#!/bin/sh\nif grep -qs '^State:\t[^Z]' /proc/" + pid +
                           "/status; then echo early; else echo ended; fi >" + result.toUtf8() +
                           "\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::ExeOwner);

    QProcess tool;
    tool.start(QStringLiteral(LUMBRIX_RELAUNCH), {program, QString::fromLatin1(pid)});
    ASSERT_TRUE(tool.waitForStarted());
    EXPECT_FALSE(tool.waitForFinished(200));
    former.closeWriteChannel();
    EXPECT_TRUE(tool.waitForFinished());
    EXPECT_EQ(tool.exitCode(), 0);
    EXPECT_EQ(readFile(result), "ended\n");
    EXPECT_TRUE(former.waitForFinished());

    tool.start(QStringLiteral(LUMBRIX_RELAUNCH), {program, u"0"_s});
    EXPECT_TRUE(tool.waitForFinished());
    EXPECT_EQ(tool.exitCode(), 2);
}

} // namespace
} // namespace lumbrix::platform
