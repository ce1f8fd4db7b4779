// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A calendar's icon under the mouse shows today's events.
#include "DesktopTest.h"

#include <QtCore/QDate>
#include <QtCore/QFile>

namespace lumbrix::privatedesk
{
namespace
{

/// Whole days around today, so that the time of day does not matter.
QByteArray calendarOf(int events)
{
    const auto day = [](int distance) {
        return QDate::currentDate().addDays(distance).toString(u"yyyyMMdd"_s).toLatin1();
    };
    QByteArray text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n";
    for (int i = 1; i <= events; ++i)
        text += "BEGIN:VEVENT\r\nUID:" + QByteArray::number(i) + "\r\nSUMMARY:Event " +
                QByteArray::number(i) + "\r\nDTSTART;VALUE=DATE:" + day(-1) +
                "\r\nDTEND;VALUE=DATE:" + day(2) + "\r\nEND:VEVENT\r\n";
    return text + "END:VCALENDAR\r\n";
}

} // namespace

class CalendarTest : public DesktopTest
{
protected:
    /// Waits until there is one preview, of so many events; tells where.
    Result showsEvents(int events)
    {
        return waitUntil([&] {
            const std::vector<Panel> previews = display().previews();
            return previews.size() == 1 && previews.front().geometry.height() == 17 * events + 40;
        });
    }
    void TearDown() override
    {
        QFile::remove(m_file);
        DesktopTest::TearDown();
    }

    QString m_file;
};

INSTANTIATE_TEST_SUITE_P(, CalendarTest, testing::Values(plank()), deskName);

TEST_P(CalendarTest, calendarIcon_hovered_listsTheEventsOfAFile)
{
    Session& session = desk().session();
    const QString identifier = u"org.gnome.Calendar"_s;
    session.installApplication(identifier, u"Kalender"_s, u"Org.gnome.Calendar"_s, u"true"_s,
                               Qt::magenta);
    m_file = session.dataPath(u"lumbrix/calendars/mine.ics"_s);
    session.write(m_file, calendarOf(3));
    const Application& calendar = launch(identifier, 1);
    launch(u"alpha"_s, 1);
    const xcb_window_t active = display().activeWindow();
    hover(calendar);
    ASSERT_TRUE(showsEvents(3));
    savePicture("calendar");
    EXPECT_EQ(display().activeWindow(), active) << "the focus has moved";

    // What has changed meanwhile is seen the next time.
    ASSERT_TRUE(parkShowsNothing());
    session.write(m_file, calendarOf(12));
    hover(calendar);
    ASSERT_TRUE(showsEvents(10));
    display().moveTo(display().previews().front().geometry.center());
    display().click();
    EXPECT_TRUE(waitUntil([&] { return display().activeWindow() == calendar.windows()[0].id; }));
}

} // namespace lumbrix::privatedesk
