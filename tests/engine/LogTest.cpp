// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the engine tells of a row, and what it keeps to itself.

#include <QtCore/QRegularExpression>

#include "platform/Log.h"
#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

class LogTest : public EngineFixture
{
protected:
    LogTest() : m_former(qInstallMessageHandler(keep)) { lines.clear(); }
    ~LogTest() override
    {
        log::turnOn(u"keys");
        QLoggingCategory::setFilterRules({});
        qSetMessagePattern(u"%{if-category}%{category}: %{endif}%{message}"_s);
        qInstallMessageHandler(m_former);
    }
    /// All that was told while it was done.
    template <class Do> QString told(Do what)
    {
        lines.clear();
        what();
        loop.advance(0.5);
        return lines.join(u'\n');
    }
    inline static QStringList lines;

private:
    static void keep(QtMsgType, const QMessageLogContext& context, const QString& message)
    {
        if (qstrncmp(context.category, "lumbrix.", 8) == 0)
            lines << QString::fromLatin1(context.category) + u": "_s + message;
    }
    const QtMessageHandler m_former;
};

TEST_F(LogTest, rows_comeStayAndGo_withTheReason)
{
    add(u"Notes"_s, 2);
    add(u"Maps"_s, 1);
    EXPECT_EQ(told([&] { hover(u"Notes"_s); }), u""_s) << "nobody asked";
    told([&] { leave(); });
    EXPECT_FALSE(log::turnOn(u"hover,what"));
    ASSERT_TRUE(log::turnOn(u"hover"));

    EngineSettings& set = settings();
    const std::pair<std::function<void()>, QString> steps[] = {
        {[&] { hover(u"Notes"_s); }, u"hover: a row for .*Notes.*, of 2 windows\n"_s},
        {[&] { leave(); }, u"row of 2 goes: the mouse has left$"_s},
        {[&] { set.onlyIfPressed = 1, hover(u"Maps"_s); },
         u"^lumbrix.hover: no row for .*: the key that shows previews is not held$"_s},
        {[&] { set.onlyIfPressed = 0, set.ignoreOneWindow = 1, leave(), hover(u"Maps"_s); },
         u"no row for .*: there is but one window"_s},
        {[&] { set.ignoreOneWindow = 0, leave(), hover(u"Maps"_s); }, u"a row for "_s},
        {[&] { set.neverClose = 1, leave(); }, u"the row stays: neverClose is set"_s},
        {[&] { desk.openDockMenu(); }, u"row of 1 goes: a menu of the Dock has opened"_s},
        {[&] { set.neverClose = 0, hover(u"Notes"_s); }, u"a row for "_s},
        {[&] { desk.closeWindow(desk.stacking().back()); },
         u"window 0x.* goes from the row: it cannot be read, or is gone"_s},
        {[&] { hover(u"Trash"_s); },
         u"row of 1 goes: the mouse is on an icon that has no previews"_s},
    };
    for (const auto& [step, expected] : steps) {
        const QString text = told(step);
        EXPECT_TRUE(text.contains(QRegularExpression(expected))) << qPrintable(expected) << " in\n"
                                                                 << qPrintable(text);
        EXPECT_FALSE(text.contains(u"Notes 1"_s) || text.contains(u"Maps 1"_s)) << "a title";
    }
    ASSERT_TRUE(log::turnOn(u"titles"));
    EXPECT_TRUE(told([&] { hover(u"Notes"_s); }).contains(u"into the row “Notes "_s));
    EXPECT_EQ(log::oneLine(u"a\nb\x1b[2J"_s + QString(5000, u'x')).left(12), u"a\\nb\\x1b[2Jx"_s);
    EXPECT_LT(log::oneLine(QString(5000, u'x')).size(), 2100);
}

} // namespace
} // namespace lumbrix::test
