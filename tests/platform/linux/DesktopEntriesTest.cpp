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
        return parseDesktopEntry(text, u"f"_s, u"/f.desktop"_s,
                                 localeSpellings(QString::fromLatin1(locale)), isHidden)
            ->name;
    };
    EXPECT_EQ(name("de_AT.UTF-8@euro"), u"Ordner"_s);
    EXPECT_EQ(name("de_CH.UTF-8"), u"Dateien"_s);
    EXPECT_EQ(name("C.UTF-8"), u"Files"_s);
    const auto entry = parseDesktopEntry(text, u"f"_s, QString(), {}, isHidden);
    EXPECT_EQ(execArguments(entry->exec), (QStringList{u"files"_s, u"--x"_s}));
    EXPECT_FALSE(parseDesktopEntry("[Desktop Entry]\nType=Link\nName=x\n", {}, {}, {}, isHidden));
}

TEST(DesktopEntryTest, exec_lines_are_split_as_their_quotes_say)
{
    const auto words = [](const char* exec) {
        return execArguments(QString::fromLatin1(exec)).join(u'|');
    };
    EXPECT_EQ(words("\"my prog\" --a=\"b \\\"c\\\"\" %F 100%% %i"), u"my prog|--a=b \"c\"|100%"_s);
    EXPECT_EQ(words(" \"\" x\\ y %"), u"|x y|%"_s);
    DesktopEntry entry;
    entry.exec = u"env A=1 /opt/x/prog --flag"_s;
    EXPECT_EQ(entry.executable(), u"prog"_s);
}

TEST(ProcessNamesTest, interpreters_stand_for_their_scripts)
{
    const ProcessNames python{u"/usr/bin/python3.11"_s,
                              {u"/usr/bin/python3"_s, u"-s"_s, u"/opt/app/meld.py"_s}};
    EXPECT_EQ(python.programs(), (QStringList{u"meld.py"_s, u"meld"_s}));
    const ProcessNames plain{u"/opt/real"_s, {u"/usr/bin/link"_s}};
    EXPECT_EQ(plain.programs(), (QStringList{u"link"_s, u"real"_s}));
}

TEST(DesktopEntriesTest, entries_are_found_by_what_windows_say)
{
    QTemporaryDir user;
    QTemporaryDir system;
    QDir(system.path()).mkdir(u"kde"_s);
    writeEntry(system.path(), u"org.xfce.mousepad-settings"_s,
               "Name=Settings\nExec=mousepad --preferences\n");
    writeEntry(system.path(), u"org.xfce.mousepad"_s, "Name=Mousepad\nExec=mousepad %U\n");
    writeEntry(system.path(), u"kde/old"_s,
               "Name=Old\nExec=old\nStartupWMClass=Shared\n"
               "NoDisplay=true\n");
    writeEntry(system.path(), u"new"_s, "Name=New\nExec=new\nStartupWMClass=shared\n");
    writeEntry(system.path(), u"vim"_s, "Name=Vim\nExec=vim %F\nTerminal=true\n");
    writeEntry(system.path(), u"gone"_s, "Name=Gone\nExec=gone\n");
    writeEntry(user.path(), u"gone"_s, "Hidden=true\n");
    double now = 0.0;
    DesktopEntries entries({user.path(), system.path()}, {}, [&] { return now; });
    const auto executable = [&](const char* name) {
        return idOf(entries.byExecutable(QString::fromLatin1(name)));
    };
    EXPECT_EQ(executable("mousepad"), u"org.xfce.mousepad"_s);
    EXPECT_EQ(executable("old"), u"kde-old"_s); // not shown in menus, yet known
    EXPECT_EQ(executable("vim"), QString());    // its window is the terminal's
    EXPECT_EQ(executable("gone"), QString());
    EXPECT_EQ(idOf(entries.byStartupWmClass(u"SHARED"_s)), u"new"_s);
    EXPECT_EQ(idOf(entries.byApplicationId(u"Mousepad"_s)), u"org.xfce.mousepad"_s);

    // Another entry appears; folders are looked at again after a while only.
    writeEntry(user.path(), u"fresh"_s, "Name=Fresh\nExec=fresh\n");
    EXPECT_EQ(executable("fresh"), QString());
    now = 5.0;
    EXPECT_EQ(executable("fresh"), u"fresh"_s);
    const QString fresh = user.filePath(u"fresh.desktop"_s);
    QFile::remove(fresh);
    // Reading in its place what never says anything would take for ever.
    const QString pipe = user.filePath(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(pipe, fresh));
    EXPECT_FALSE(launchUrl(entries, QUrl::fromLocalFile(fresh)));
    now = 10.0;
    EXPECT_EQ(executable("fresh"), QString());
}

TEST(DesktopEntriesTest, entriesElsewhere_areForgottenOnceTheyAreMany)
{
    QTemporaryDir folder;
    writeEntry(folder.path(), u"a"_s, "Name=A\nExec=a\n");
    DesktopEntries entries({}, {}, [] { return 0.0; });
    const auto named = [&](int name) { // each entry has more names than anyone can count
        return entries.byPath(folder.path() + u"/."_s.repeated(name) + u"/a.desktop"_s);
    };
    const std::weak_ptr<const DesktopEntry> first = named(0);
    ASSERT_TRUE(named(1));
    EXPECT_EQ(named(0), first.lock()) << "it is read once";
    for (int name = 2; name < 1100; ++name)
        ASSERT_TRUE(named(name));
    EXPECT_TRUE(first.expired());
}

} // namespace lumbrix::platform
