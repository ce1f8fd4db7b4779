// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/DesktopEntries.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/linux/applications/Launcher.h"
#include "platform/linux/applications/ProcessNames.h"
#include "tests/platform/linux/AdapterFixture.h"

namespace lumbrix::platform
{

using test::writeEntry;

namespace
{
QString idOf(const DesktopEntryPtr& entry) { return entry ? entry->id : QString(); }
} // namespace

TEST(DesktopEntryTest, text_is_read_by_locale_and_only_from_its_main_group)
{
    bool isHidden = false;
    const QByteArray text = "# c\n[Desktop Entry]\nName=Files\nName[de]=Dateien\n"
                            "Name[de_AT@euro]=Ordner\nExec=files\\s--x %U\n"
                            "[Desktop Action new]\nName=New\nExec=other\n";
    const auto name = [&](const char* locale) {
        return parseDesktopEntry(text, QStringLiteral("f"), QStringLiteral("/f.desktop"),
                                 localeSpellings(QString::fromLatin1(locale)), isHidden)
            ->name;
    };
    EXPECT_EQ(name("de_AT.UTF-8@euro"), QStringLiteral("Ordner"));
    EXPECT_EQ(name("de_CH.UTF-8"), QStringLiteral("Dateien"));
    EXPECT_EQ(name("C.UTF-8"), QStringLiteral("Files"));
    const auto entry = parseDesktopEntry(text, QStringLiteral("f"), QString(), {}, isHidden);
    EXPECT_EQ(execArguments(entry->exec),
              (QStringList{QStringLiteral("files"), QStringLiteral("--x")}));
    EXPECT_FALSE(parseDesktopEntry("[Desktop Entry]\nType=Link\nName=x\n", {}, {}, {}, isHidden));
}

TEST(DesktopEntryTest, exec_lines_are_split_as_their_quotes_say)
{
    const auto words = [](const char* exec) {
        return execArguments(QString::fromLatin1(exec)).join(u'|');
    };
    EXPECT_EQ(words("\"my prog\" --a=\"b \\\"c\\\"\" %F 100%% %i"),
              QStringLiteral("my prog|--a=b \"c\"|100%"));
    EXPECT_EQ(words(" \"\" x\\ y %"), QStringLiteral("|x y|%"));
    DesktopEntry entry;
    entry.exec = QStringLiteral("env A=1 /opt/x/prog --flag");
    EXPECT_EQ(entry.executable(), QStringLiteral("prog"));
}

TEST(ProcessNamesTest, interpreters_stand_for_their_scripts)
{
    const ProcessNames python{QStringLiteral("/usr/bin/python3.11"),
                              {QStringLiteral("/usr/bin/python3"), QStringLiteral("-s"),
                               QStringLiteral("/opt/app/meld.py")}};
    EXPECT_EQ(python.programs(), (QStringList{QStringLiteral("meld.py"), QStringLiteral("meld")}));
    const ProcessNames plain{QStringLiteral("/opt/real"), {QStringLiteral("/usr/bin/link")}};
    EXPECT_EQ(plain.programs(), (QStringList{QStringLiteral("link"), QStringLiteral("real")}));
}

TEST(DesktopEntriesTest, entries_are_found_by_what_windows_say)
{
    QTemporaryDir user;
    QTemporaryDir system;
    QDir(system.path()).mkdir(QStringLiteral("kde"));
    writeEntry(system.path(), QStringLiteral("org.xfce.mousepad-settings"),
               "Name=Settings\nExec=mousepad --preferences\n");
    writeEntry(system.path(), QStringLiteral("org.xfce.mousepad"),
               "Name=Mousepad\nExec=mousepad %U\n");
    writeEntry(system.path(), QStringLiteral("kde/old"),
               "Name=Old\nExec=old\nStartupWMClass=Shared\n"
               "NoDisplay=true\n");
    writeEntry(system.path(), QStringLiteral("new"), "Name=New\nExec=new\nStartupWMClass=shared\n");
    writeEntry(system.path(), QStringLiteral("vim"), "Name=Vim\nExec=vim %F\nTerminal=true\n");
    writeEntry(system.path(), QStringLiteral("gone"), "Name=Gone\nExec=gone\n");
    writeEntry(user.path(), QStringLiteral("gone"), "Hidden=true\n");
    double now = 0.0;
    DesktopEntries entries({user.path(), system.path()}, {}, [&] { return now; });
    const auto executable = [&](const char* name) {
        return idOf(entries.byExecutable(QString::fromLatin1(name)));
    };
    EXPECT_EQ(executable("mousepad"), QStringLiteral("org.xfce.mousepad"));
    EXPECT_EQ(executable("old"), QStringLiteral("kde-old")); // not shown in menus, yet known
    EXPECT_EQ(executable("vim"), QString());                 // its window is the terminal's
    EXPECT_EQ(executable("gone"), QString());
    EXPECT_EQ(idOf(entries.byStartupWmClass(QStringLiteral("SHARED"))), QStringLiteral("new"));
    EXPECT_EQ(idOf(entries.byApplicationId(QStringLiteral("Mousepad"))),
              QStringLiteral("org.xfce.mousepad"));

    // Another entry appears; folders are looked at again after a while only.
    writeEntry(user.path(), QStringLiteral("fresh"), "Name=Fresh\nExec=fresh\n");
    EXPECT_EQ(executable("fresh"), QString());
    now = 5.0;
    EXPECT_EQ(executable("fresh"), QStringLiteral("fresh"));
    const QString fresh = user.filePath(QStringLiteral("fresh.desktop"));
    QFile::remove(fresh);
    // Reading in its place what never says anything would take for ever.
    const QString pipe = user.filePath(QStringLiteral("pipe"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(pipe, fresh));
    EXPECT_FALSE(launchUrl(entries, QUrl::fromLocalFile(fresh)));
    now = 10.0;
    EXPECT_EQ(executable("fresh"), QString());
}

} // namespace lumbrix::platform
