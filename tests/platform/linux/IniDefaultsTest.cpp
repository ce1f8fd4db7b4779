// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/defaults/IniDefaults.h"
#include "platform/StringLiterals.h"

#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <csignal>
#include <limits>
#include <sys/resource.h>
#include <sys/stat.h>

#include "tests/support/Files.h"

namespace lumbrix::platform
{

class IniDefaultsTest : public testing::Test
{
protected:
    QByteArray onDisk() const { return test::readFile(m_path); }
    void putOnDisk(const QByteArray& bytes) const
    {
        QFile::remove(m_path); // a new file, so that it counts as changed within one clock tick
        test::writeFile(m_path, bytes);
    }
    static QString key(const char* name) { return QString::fromLatin1(name); }

    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(u"config/lumbrix/lumbrix.conf"_s);
};

TEST_F(IniDefaultsTest, values_of_every_type_survive_a_new_start)
{
    const QByteArray bytes("\x00\xff)=\n[x]\\", 8);
    const QStringList list{u"a, b"_s, QString(), u" x "_s, u"say \"hi\"\\\n"_s, u"ünïcode"_s};
    const QVariantMap filters{{u"All applications"_s, 2},    {u"a=b]"_s, 0},
                              {u" #edge "_s, u"12"_s},       {u"flag"_s, true},
                              {u"text"_s, u" @json(x)\n"_s}, {u"real"_s, 0.1}};
    {
        IniDefaults defaults(m_path);
        defaults.setInteger(std::numeric_limits<std::int64_t>::min(), key("integer"));
        defaults.setFloat(0.1F, key("float"));
        defaults.setBool(true, key("flag"));
        defaults.setArray(list, key("calendars"));
        defaults.setArray({}, key("empty"));
        defaults.setData(bytes, key("data"));
        defaults.setDictionary(filters, key("filters"));
        defaults.setDictionary({}, key("emptyDictionary"));
        ASSERT_TRUE(defaults.synchronize());
    }
    EXPECT_TRUE(onDisk().startsWith("[General]\ninteger=-9223372036854775808\nfloat=0.1\n"
                                    "flag=true\n"))
        << onDisk().toStdString();
    const IniDefaults defaults(m_path);
    EXPECT_EQ(defaults.integerForKey(key("integer")), std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(defaults.floatForKey(key("float")), 0.1F);
    EXPECT_TRUE(defaults.boolForKey(key("flag")));
    EXPECT_EQ(defaults.integerForKey(key("flag")), 1);
    EXPECT_EQ(defaults.arrayForKey(key("calendars")), list);
    EXPECT_EQ(defaults.arrayForKey(key("empty")), QStringList());
    EXPECT_EQ(defaults.dataForKey(key("data")), bytes);
    EXPECT_EQ(defaults.dictionaryForKey(key("filters")), filters);
    EXPECT_EQ(defaults.dictionaryForKey(key("emptyDictionary")), QVariantMap());
    EXPECT_FALSE(defaults.dictionaryForKey(key("never")));
    EXPECT_FALSE(defaults.dictionaryForKey(key("General")));
}

TEST_F(IniDefaultsTest, new_file_and_its_folders_are_the_users_alone)
{
    const auto mode = [](const QString& path) {
        struct stat status = {};
        return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 0777U
                                                                         : 0;
    };
    const auto change = [this](int value) {
        IniDefaults defaults(m_path);
        defaults.setInteger(value, key("value"));
        return defaults.synchronize();
    };
    ASSERT_TRUE(change(1));
    EXPECT_EQ(mode(m_path), 0600U);
    EXPECT_EQ(mode(m_folder.filePath(u"config/lumbrix"_s)), 0700U);
    EXPECT_EQ(mode(m_folder.filePath(u"config"_s)), 0700U);
    // What the user has chosen stays.
    ASSERT_EQ(::chmod(QFile::encodeName(m_path).constData(), 0644), 0);
    ASSERT_TRUE(change(2));
    EXPECT_EQ(mode(m_path), 0644U);
}

TEST_F(IniDefaultsTest, what_others_wrote_into_the_file_stays)
{
    const QByteArray before = "# mine\nwindowWidth = 300 \r\n\n!! no line of ours\n\xff\xfe=3\n"
                              "[filters]\n; comment\nAll applications=2\n\n[other]\nx=y";
    putOnDisk(before);
    IniDefaults defaults(m_path);
    EXPECT_EQ(defaults.integerForKey(key("windowWidth")), 300);
    defaults.setInteger(300, key("windowWidth")); // no change, so nothing to write
    ASSERT_TRUE(defaults.synchronize());
    EXPECT_EQ(onDisk(), before);

    defaults.setInteger(1, key("firstRun"));
    defaults.setDictionary({{key("com.example"), 3}}, key("filters"));
    ASSERT_TRUE(defaults.synchronize());
    EXPECT_EQ(onDisk(), "# mine\nwindowWidth = 300 \r\n\n!! no line of ours\n\xff\xfe=3\n"
                        "firstRun=1\n[filters]\n; comment\ncom.example=3\n\n[other]\nx=y");
    defaults.removeObjectForKey(key("filters"));
    defaults.removeObjectForKey(key("windowWidth"));
    ASSERT_TRUE(defaults.synchronize());
    EXPECT_EQ(onDisk(), "# mine\n\n!! no line of ours\n\xff\xfe=3\nfirstRun=1\n"
                        "; comment\n\n[other]\nx=y");
}

TEST_F(IniDefaultsTest, changes_of_others_and_own_ones_are_merged)
{
    IniDefaults mine(m_path);
    mine.setInteger(1, key("a"));
    ASSERT_TRUE(mine.synchronize());
    mine.setInteger(2, key("b"));
    putOnDisk("[General]\na=7\nb=9\nc=true\n");
    EXPECT_EQ(mine.integerForKey(key("a")), 1); // read again at synchronize only
    ASSERT_TRUE(mine.synchronize());
    EXPECT_EQ(mine.integerForKey(key("a")), 7);
    EXPECT_EQ(mine.integerForKey(key("b")), 2);
    EXPECT_EQ(onDisk(), "[General]\na=7\nb=2\nc=true\n");
    putOnDisk("[General]\na=8\n");
    ASSERT_TRUE(mine.synchronize());
    EXPECT_EQ(mine.integerForKey(key("a")), 8);
    EXPECT_FALSE(mine.boolForKey(key("c")));
}

TEST_F(IniDefaultsTest, values_that_do_not_read_as_the_type_read_as_nothing)
{
    putOnDisk("text=abc\nhuge=99999999999999999999\nreal=2.9\ninf=inf\nwide=1e300\nopen=\"a\n"
              "filters=3\nyes=Yes\nbroken\n=5\n[unclosed\n[also] no\n");
    const IniDefaults defaults(m_path);
    EXPECT_EQ(defaults.integerForKey(key("text")), 0);
    EXPECT_EQ(defaults.integerForKey(key("huge")), 0);
    EXPECT_EQ(defaults.integerForKey(key("real")), 2);
    EXPECT_EQ(defaults.floatForKey(key("inf")), 0.0F);
    EXPECT_EQ(defaults.floatForKey(key("wide")), 0.0F);
    EXPECT_FALSE(defaults.boolForKey(key("text")));
    EXPECT_TRUE(defaults.boolForKey(key("yes")));
    EXPECT_FALSE(defaults.dictionaryForKey(key("filters")));
    EXPECT_FALSE(defaults.dataForKey(key("text")));
    EXPECT_FALSE(defaults.arrayForKey(key("open")));
}

TEST_F(IniDefaultsTest, file_far_too_long_is_read_at_its_beginning_and_kept_whole)
{
    QByteArray flood;
    while (flood.size() < 10'000'000)
        flood += "[x]\nfirstRun=0\nwindowWidth=\xff\xff\n";
    putOnDisk("windowWidth=300\n[filters]\na=1\n" + flood);
    IniDefaults defaults(m_path);
    EXPECT_EQ(defaults.integerForKey(key("windowWidth")), 300);
    defaults.setDictionary({{key("b"), 2}}, key("filters"));
    defaults.setDictionary({{key("keyCode"), 3}}, key("someKey"));
    ASSERT_TRUE(defaults.synchronize());
    defaults.setInteger(400, key("windowWidth"));
    ASSERT_TRUE(defaults.synchronize());
    // At the top, where it is found again.
    const QByteArray top = "[someKey]\nkeyCode=3\n[General]\nwindowWidth=400\n[filters]\nb=2\n";
    EXPECT_EQ(onDisk().left(top.size()), top);
    EXPECT_TRUE(onDisk().mid(top.size()) == flood) << "something of it went";
    const IniDefaults next(m_path);
    EXPECT_EQ(next.dictionaryForKey(key("someKey")), (QVariantMap{{key("keyCode"), 3}}));
}

TEST_F(IniDefaultsTest, section_of_many_keys_is_changed_at_once)
{
    // With a name that takes as long to compare as all of these to read: with each key searched for
    // this has no end that a test is waited for.
    const QByteArray name(10'000, 'x');
    QByteArray lines = '[' + name + "]\n";
    for (int i = 0; i < 30'000; ++i)
        lines += QByteArray::number(i, 36) + "=1\n";
    putOnDisk(lines);
    IniDefaults defaults(m_path);
    QVariantMap filters = defaults.dictionaryForKey(key(name)).value_or(QVariantMap());
    filters.insert(key("new"), 1);
    defaults.setDictionary(filters, key(name));
    EXPECT_EQ(defaults.dictionaryForKey(key(name))->size(), 30'001);
    defaults.setDictionary({{key("new"), 1}}, key(name));
    ASSERT_TRUE(defaults.synchronize());
    EXPECT_EQ(onDisk(), '[' + name + "]\nnew=1\n");
}

TEST_F(IniDefaultsTest, disk_full_leaves_the_old_file_whole)
{
    const QByteArray before = "a=1\n";
    putOnDisk(before);
    IniDefaults defaults(m_path);
    // Little enough to be held back until the file is closed.
    defaults.setData(QByteArray(10'000, 'x'), key("large"));
    // Stands for a full disk: nothing can be written beyond so many bytes of a file.
    struct rlimit old {
    };
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    const struct rlimit tight {
        4096, old.rlim_max
    };
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tight), 0);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_FALSE(defaults.synchronize());
    const std::string said = testing::internal::GetCapturedStderr();
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(onDisk(), before);
    EXPECT_EQ(QDir(QFileInfo(m_path).path()).entryList(QDir::Files).size(), 1);
    EXPECT_TRUE(
        QByteArray::fromStdString(said).startsWith("lumbrix: the settings in " + m_path.toUtf8()));
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 1) << said;
    EXPECT_TRUE(defaults.synchronize());
    EXPECT_EQ(defaults.dataForKey(key("large"))->size(), 10'000);
}

} // namespace lumbrix::platform
