// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/LinuxCalendarStore.h"

#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include <set>

#include "platform/StringLiterals.h"
#include "platform/linux/calendar/EvolutionObject.h"
#include "tests/support/Files.h"
#include "tests/support/VirtualRunLoop.h"

inline void PrintTo(const QString& text, std::ostream* out) { *out << text.toStdString(); }

namespace lumbrix::platform
{
namespace
{

const QTimeZone berlin("Europe/Berlin");
const QTimeZone newYork("America/New_York");

/// The store on a folder of files, without a bus, in virtual time.
class CalendarStoreTest : public testing::Test
{
protected:
    ~CalendarStoreTest() override { m_loop.shutdown(); }

    void write(const QString& name, const QByteArray& bytes) const
    {
        test::writeFile(m_folder.filePath(name), bytes);
    }
    /// A calendar of these events, each the lines of one.
    void writeEvents(const QString& name, const QByteArrayList& events,
                     const QByteArray& more = {}) const
    {
        QByteArray text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n" + more;
        for (const QByteArray& event : events)
            text += "BEGIN:VEVENT\r\n" + event + "\r\nEND:VEVENT\r\n";
        write(name, text.replace('\n', "\r\n").replace("\r\r\n", "\r\n") + "END:VCALENDAR\r\n");
    }
    void read(const QDate& day, const QTimeZone& zone)
    {
        bool isDone = false;
        m_store.refresh(day.startOfDay(zone), day.addDays(1).startOfDay(zone),
                        [&isDone] { isDone = true; });
        EXPECT_FALSE(isDone);
        m_loop.runUntilIdle();
        EXPECT_TRUE(isDone);
    }
    QStringList allCalendars() const
    {
        QStringList uids;
        for (const Calendar& calendar : m_store.calendars().calendars)
            uids << calendar.uid;
        return uids;
    }
    /// What happens that day, as times of the day; of other days with the day of the month.
    QString eventsOn(const QDate& day, const QTimeZone& zone = berlin)
    {
        read(day, zone);
        const auto time = [&day](const QDateTime& when) {
            return when.toString(when.date() == day ? u"hh:mm"_s : u"d/hh:mm"_s);
        };
        QStringList lines;
        for (const CalendarEvent& event :
             m_store.events(day.startOfDay(zone), day.addDays(1).startOfDay(zone), allCalendars())
                 .events)
            lines << u"%1-%2 %3"_s.arg(time(event.start), time(event.end), event.title);
        return lines.join(u"; "_s);
    }

    QTemporaryDir m_folder;
    const QString m_own = u"own/"_s;
    test::VirtualRunLoop m_loop;
    LinuxCalendarStore m_store{m_loop, QDBusConnection(u"no such bus"_s),
                               IcalFolderPaths{m_folder.filePath(u"own"_s),
                                               m_folder.filePath(u"orage/orage.ics"_s),
                                               m_folder.filePath(u"evolution"_s),
                                               {m_folder.filePath(u"sources"_s)}}};
};

TEST_F(CalendarStoreTest, recurringEvent_withExceptions_happensWhereACalendarHasIt)
{
    writeEvents(m_own + u"work.ics"_s,
                {// Tuesdays and Thursdays; not on the 10th, later on the 12th, not on the 17th, on
                 // the 18th in place of the 19th, and besides on Sunday, the 15th.
                 "UID:1\nSUMMARY:Standup\nDTSTART;TZID=Europe/Berlin:20260303T091500\n"
                 "DTEND;TZID=Europe/Berlin:20260303T093000\nRRULE:FREQ=WEEKLY;BYDAY=TU,TH\n"
                 "EXDATE;TZID=Europe/Berlin:20260310T091500\nEXDATE:20260317T081500Z\n"
                 "RDATE;TZID=Europe/Berlin:20260315T110000",
                 "UID:1\nRECURRENCE-ID;TZID=Europe/Berlin:20260312T091500\nSUMMARY:Late standup\n"
                 "DTSTART;TZID=Europe/Berlin:20260312T160000\nDURATION:PT45M",
                 "UID:1\nRECURRENCE-ID:20260319T081500Z\nSUMMARY:Early standup\n"
                 "DTSTART:20260318T070000Z\nDTEND:20260318T080000Z",
                 "UID:1\nRECURRENCE-ID;TZID=Europe/Berlin:20260324T091500\nSTATUS:CANCELLED\n"
                 "DTSTART;TZID=Europe/Berlin:20260324T091500\nSUMMARY:Standup",
                 // An older version of the late one comes after it.
                 "UID:2\nSEQUENCE:3\nSUMMARY:New plan\nDTSTART:20260303T120000Z\nDURATION:PT1H",
                 "UID:2\nSEQUENCE:1\nSUMMARY:Old plan\nDTSTART:20260303T130000Z\nDURATION:PT1H"});
    EXPECT_EQ(eventsOn({2026, 3, 2}), u""_s);
    EXPECT_EQ(eventsOn({2026, 3, 3}), u"09:15-09:30 Standup; 13:00-14:00 New plan"_s);
    EXPECT_EQ(eventsOn({2026, 3, 10}), u""_s);
    EXPECT_EQ(eventsOn({2026, 3, 12}), u"16:00-16:45 Late standup"_s);
    EXPECT_EQ(eventsOn({2026, 3, 15}), u"11:00-11:15 Standup"_s);
    EXPECT_EQ(eventsOn({2026, 3, 17}), u""_s);
    EXPECT_EQ(eventsOn({2026, 3, 18}), u"08:00-09:00 Early standup"_s);
    EXPECT_EQ(eventsOn({2026, 3, 19}), u""_s);
    EXPECT_EQ(eventsOn({2026, 3, 24}), u""_s);
    EXPECT_EQ(eventsOn({2031, 9, 18}), u"09:15-09:30 Standup"_s);
}

TEST_F(CalendarStoreTest, rules_withEndsCountsAndLongPasts_giveTheirDays)
{
    writeEvents(
        m_own + u"rules.ics"_s,
        {"UID:until\nSUMMARY:until\nDTSTART;TZID=America/New_York:20260301T200000\n"
         "DURATION:PT1H\nRRULE:FREQ=DAILY;UNTIL=20260306T010000Z", // the last: the 5th at 20:00
         "UID:day\nSUMMARY:untilDay\nDTSTART:20260301T120000\nRRULE:FREQ=DAILY;UNTIL=20260305",
         "UID:count\nSUMMARY:count\nDTSTART:20260226T070000\nRRULE:FREQ=DAILY;INTERVAL=2;COUNT=4",
         "UID:old\nSUMMARY:old\nDTSTART:19990401T060000\nDURATION:PT1H\n"
         "RRULE:FREQ=WEEKLY;INTERVAL=2;BYDAY=TH,FR",
         "UID:last\nSUMMARY:last\nDTSTART:20200131T180000\n"
         "RRULE:FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-1",
         "UID:leap\nSUMMARY:leap\nDTSTART;VALUE=DATE:20000229\nRRULE:FREQ=YEARLY",
         "UID:hours\nSUMMARY:hours\nDTSTART:20260306T233000\nRRULE:FREQ=HOURLY;COUNT=2"});
    // Of two in the same second the one that was written first comes first.
    EXPECT_EQ(eventsOn({2026, 3, 4}, newYork), u"07:00-07:00 count; 12:00-12:00 untilDay; "
                                               "20:00-21:00 until"_s);
    EXPECT_EQ(eventsOn({2026, 3, 5}, newYork), u"12:00-12:00 untilDay; 20:00-21:00 until"_s);
    EXPECT_EQ(eventsOn({2026, 3, 6}, newYork), u"23:30-23:30 hours"_s);
    EXPECT_EQ(eventsOn({2026, 3, 7}, newYork), u"00:30-00:30 hours"_s);
    EXPECT_EQ(eventsOn({2026, 3, 12}, newYork), u"06:00-07:00 old"_s);
    EXPECT_EQ(eventsOn({2026, 3, 31}, newYork), u"18:00-18:00 last"_s);
    EXPECT_EQ(eventsOn({2026, 2, 28}, newYork), u"07:00-07:00 count"_s);
    EXPECT_EQ(eventsOn({2028, 2, 29}, newYork), u"00:00-1/00:00 leap; 18:00-18:00 last"_s);
}

TEST_F(CalendarStoreTest, eventsOverMidnightAndOfWholeDays_belongToEachOfTheirDays)
{
    writeEvents(m_own + u"long.ics"_s,
                {"UID:1\nSUMMARY:Night shift\nDTSTART;TZID=Europe/Berlin:20260302T220000\n"
                 "DTEND;TZID=Europe/Berlin:20260303T060000\nRRULE:FREQ=WEEKLY",
                 "UID:2\nSUMMARY:Fair\nDTSTART;VALUE=DATE:20260309\nDTEND;VALUE=DATE:20260312",
                 "UID:3\nSUMMARY:Birthday\nDTSTART;VALUE=DATE:19800310\nRRULE:FREQ=YEARLY",
                 "UID:4\nSUMMARY:Trip\nDTSTART:20260308T100000\nDURATION:P3DT2H",
                 "UID:5\nSUMMARY:Ends at midnight\nDTSTART:20260310T230000\n"
                 "DTEND:20260311T000000"});
    EXPECT_EQ(eventsOn({2026, 3, 10}),
              u"8/10:00-11/12:00 Trip; 9/00:00-12/00:00 Fair; 9/22:00-06:00 Night shift; "
              "00:00-11/00:00 Birthday; 23:00-11/00:00 Ends at midnight"_s);
    EXPECT_EQ(eventsOn({2026, 3, 11}), u"8/10:00-12:00 Trip; 9/00:00-12/00:00 Fair"_s);
    EXPECT_EQ(eventsOn({2026, 3, 12}), u""_s);
    // Whole days are the days of whoever looks.
    EXPECT_EQ(eventsOn({2026, 3, 12}, newYork), u""_s);
    // During the day, what is over is left out.
    read({2026, 3, 10}, berlin);
    const auto at = [](int hour) { return QDateTime({2026, 3, 10}, {hour, 0}, berlin); };
    EXPECT_EQ(m_store.events(at(5), at(6), allCalendars()).events.size(), 4U);
    EXPECT_EQ(m_store.events(at(6), at(7), allCalendars()).events.size(), 3U);
    EXPECT_EQ(m_store.events(at(22), at(23), allCalendars()).events.size(), 3U);
}

TEST_F(CalendarStoreTest, otherTimeZones_andChangesOfTheClock_areReckonedIn)
{
    const QByteArray ownZone =
        "BEGIN:VTIMEZONE\nTZID:Our office\n"
        "BEGIN:STANDARD\nDTSTART:19701101T020000\nRRULE:FREQ=YEARLY;BYMONTH=11;BYDAY=1SU\n"
        "TZOFFSETFROM:-0400\nTZOFFSETTO:-0500\nEND:STANDARD\n"
        "BEGIN:DAYLIGHT\nDTSTART:19700308T020000\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=2SU\n"
        "TZOFFSETFROM:-0500\nTZOFFSETTO:-0400\nEND:DAYLIGHT\nEND:VTIMEZONE\n";
    writeEvents(m_own + u"zones.ics"_s,
                {"UID:1\nSUMMARY:York\nDTSTART;TZID=America/New_York:20260105T090000\n"
                 "DURATION:PT1H\nRRULE:FREQ=WEEKLY;BYDAY=MO,SU",
                 "UID:2\nSUMMARY:office\nDTSTART;TZID=Our office:20260105T100000\n"
                 "DURATION:PT1H\nRRULE:FREQ=WEEKLY;BYDAY=MO,SU",
                 "UID:3\nSUMMARY:Berlin\n"
                 "DTSTART;TZID=/example.org/2019_1/Europe/Berlin:20260101T020000\n"
                 "DTEND;TZID=/example.org/2019_1/Europe/Berlin:20260101T033000\n"
                 "RRULE:FREQ=DAILY;BYDAY=SU",
                 "UID:4\nSUMMARY:utc\nDTSTART:20260101T160000Z\nDURATION:PT1H\n"
                 "RRULE:FREQ=WEEKLY;BYDAY=MO",
                 "UID:5\nSUMMARY:Redmond\nDTSTART;TZID=Pacific Standard Time:20260330T090000\n"
                 "DURATION:PT1H",
                 "UID:6\nSUMMARY:nowhere\nDTSTART;TZID=Nowhere:20260330T110000\nDURATION:PT1H",
                 "UID:7\nSUMMARY:anywhere\nDTSTART:20260101T120000\nDURATION:PT1H\n"
                 "RRULE:FREQ=WEEKLY;BYDAY=MO",
                 "UID:8\nSUMMARY:holiday\nDTSTART;VALUE=DATE:20261025"},
                ownZone);
    EXPECT_EQ(eventsOn({2026, 3, 2}),
              u"12:00-13:00 anywhere; 15:00-16:00 York; 16:00-17:00 office; 17:00-18:00 utc"_s);
    // America's clocks have changed, Europe's have not.
    EXPECT_EQ(eventsOn({2026, 3, 23}),
              u"12:00-13:00 anywhere; 14:00-15:00 York; 15:00-16:00 office; 17:00-18:00 utc"_s);
    // Two o'clock is skipped; an hour and a half later it is half past four.
    EXPECT_EQ(eventsOn({2026, 3, 29}), u"03:00-04:30 Berlin; 15:00-16:00 York; "
                                       "16:00-17:00 office"_s);
    EXPECT_EQ(eventsOn({2026, 3, 30}),
              u"11:00-12:00 nowhere; 12:00-13:00 anywhere; 15:00-16:00 York; 16:00-17:00 office; "
              "18:00-19:00 utc; 18:00-19:00 Redmond"_s);
    // Two o'clock comes twice, and counts the first time: the second half past two ends it.
    EXPECT_EQ(eventsOn({2026, 10, 25}), u"00:00-26/00:00 holiday; 02:00-02:30 Berlin; "
                                        "14:00-15:00 York; 15:00-16:00 office"_s);
    const auto events = m_store.events(QDate(2026, 10, 25).startOfDay(berlin),
                                       QDate(2026, 10, 26).startOfDay(berlin), allCalendars());
    EXPECT_EQ(events.events[0].start.secsTo(events.events[0].end), 25 * 3600);
    EXPECT_EQ(events.events[1].start.secsTo(events.events[1].end), 90 * 60);
    EXPECT_EQ(eventsOn({2026, 3, 8}, newYork), u"09:00-10:00 York; 10:00-11:00 office"_s);
    EXPECT_EQ(eventsOn({2026, 3, 14}, newYork), u"21:00-22:30 Berlin"_s)
        << "an hour nearer to Berlin than usual";
}

TEST_F(CalendarStoreTest, brokenFiles_areSkipped_andSpoilNothingElse)
{
    writeEvents(m_own + u"good.ics"_s, {"UID:1\nSUMMARY:good\nDTSTART:20260310T100000\n"
                                        "DTEND:20260310T110000"});
    write(m_own + u"empty.ics"_s, {});
    write(m_own + u"noise.ics"_s, QByteArray(5000, '\xff') + QByteArray("\0\n\0:;\n", 6));
    write(m_own + u"page.ics"_s, "<html><body>Please log in</body></html>\n");
    write(m_own + u"notes.txt"_s, "BEGIN:VCALENDAR\n");
    QByteArray nested;
    for (int i = 0; i < 100'000; ++i)
        nested += "BEGIN:VEVENT\nBEGIN:VALARM\n";
    write(m_own + u"nested.ics"_s, nested);
    QByteArray allTimes;
    for (const auto& [part, count] :
         {std::pair(";BYHOUR=0", 24), std::pair(";BYMINUTE=0", 60), std::pair(";BYSECOND=0", 60)}) {
        allTimes += part;
        for (int i = 1; i < count; ++i)
            allTimes += ',' + QByteArray::number(i);
    }
    const auto zoneRule = [](const QByteArray& rule) {
        return "BEGIN:STANDARD\nDTSTART:19700101T000000\nRRULE:FREQ=" + rule +
               "\nTZOFFSETFROM:+0000\nTZOFFSETTO:+0100\nEND:STANDARD\n";
    };
    writeEvents(
        m_own + u"odd.ics"_s,
        {"UID:1\nSUMMARY:never", "UID:2\nSUMMARY:garbage\nDTSTART:today\nRRULE:FREQ=BOGUS",
         "SUMMARY:month\nDTSTART:20261399T990000",
         "SUMMARY:backwards\nDTSTART:20260310T120000\nDTEND:20260310T110000",
         "SUMMARY:bad rule\nDTSTART:20260310T130000\nRRULE:FREQ=DAILY;INTERVAL=0",
         "SUMMARY:\xc3\x28 bytes\nDTSTART:20260310T140000",
         // These would be followed for hours, or fill the memory.
         "SUMMARY:impossible\nDTSTART:20260310T150000\n"
         "RRULE:FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30",
         "SUMMARY:seconds\nDTSTART:19700101T000000\nRRULE:FREQ=SECONDLY;INTERVAL=21600",
         "SUMMARY:counted\nDTSTART:00020101T000000\n"
         "RRULE:FREQ=DAILY;COUNT=5;BYMONTH=2;BYMONTHDAY=30" +
             allTimes,
         "SUMMARY:fine\nDTSTART:20260310T193000\n"
         "RRULE:FREQ=YEARLY;BYMONTH=3;BYMONTHDAY=10" +
             allTimes,
         "SUMMARY:century\nDTSTART:00020101T000000\n"
         "RRULE:FREQ=HOURLY;COUNT=5;BYDAY=1MO",
         "SUMMARY:path\nDTSTART;TZID=../../../../dev/zero:20260310T160000",
         "SUMMARY:zone\nDTSTART;TZID=Z:20260310T170000"},
        "BEGIN:VTIMEZONE\nTZID:Z\n" + zoneRule("SECONDLY") +
            zoneRule("YEARLY;BYMONTH=1,2,3,4,5,6,7,8,9,10,11,12;BYDAY=MO,TU,WE" + allTimes) +
            "END:VTIMEZONE\n");
    write(m_own + u"truncated.ics"_s, "BEGIN:VCALENDAR\nBEGIN:VEVENT\nSUMMARY:whole\n"
                                      "DTSTART:20260310T090000\nEND:VEVENT\n"
                                      "BEGIN:VEVENT\nSUMMARY:half\nDTSTART:20260310T09");
    writeEvents(m_own + u"huge.ics"_s, {"SUMMARY:huge\nDTSTART:20260310T100000"});
    QFile huge(m_folder.filePath(m_own + u"huge.ics"_s));
    ASSERT_TRUE(huge.resize(qint64{1} << 30));

    EXPECT_EQ(eventsOn({2026, 3, 10}), u"00:00-00:00 seconds; 06:00-06:00 seconds; 09:00-09:00 "
                                       u"whole; 10:00-11:00 good; 12:00-12:00 backwards; "
                                       "12:00-12:00 seconds; 13:00-13:00 bad rule; 14:00-14:00 "
                                       "\ufffd( bytes; 15:00-15:00 impossible; "
                                       "16:00-16:00 path; 17:00-17:00 zone; 18:00-18:00 seconds; "
                                       "19:30-19:30 fine"_s);
    QStringList titles;
    for (const Calendar& calendar : m_store.calendars().calendars)
        titles << calendar.title;
    EXPECT_EQ(titles, (QStringList{u"good"_s, u"nested"_s, u"odd"_s, u"truncated"_s}));
    EXPECT_EQ(m_store.calendars().error, CalendarError::None);
}

TEST_F(CalendarStoreTest, occurrencesWithoutNumber_areCutShortAndShareTheirTitle)
{
    writeEvents(m_own + u"a.ics"_s, QByteArrayList(50, "SUMMARY:a\nDTSTART:20260310T000000\n"
                                                       "RRULE:FREQ=MINUTELY"));
    writeEvents(m_own + u"b.ics"_s, {"SUMMARY:b\nDTSTART:20260310T235900"});
    read({2026, 3, 10}, berlin);
    const auto events = m_store.events(QDate(2026, 3, 10).startOfDay(berlin),
                                       QDate(2026, 3, 11).startOfDay(berlin), allCalendars());
    EXPECT_GT(events.events.size(), 1000U);
    EXPECT_LT(events.events.size(), 10'000U);
    EXPECT_EQ(events.events.back().title, u"b"_s);
    std::set<const QChar*> titles;
    for (const CalendarEvent& event : events.events)
        titles.insert(event.title.constData());
    EXPECT_LE(titles.size(), 51U);
}

// Each may take the library seconds, in which it cannot be stopped.
TEST_F(CalendarStoreTest, rulesThatNeverComeTrue_areFollowedAFewTimesOnly)
{
    const QByteArray never = "DTSTART:20260301T100000\nRRULE:FREQ=YEARLY;BYYEARDAY=366;BYMONTH=1";
    const QByteArray over = "DTSTART:20260301T100000\nRRULE:FREQ=DAILY;UNTIL=20260215T000000";
    const QByteArray monthly = "SUMMARY:a\nDTSTART:20260210T100000\nRRULE:FREQ=MONTHLY";
    for (const int count : {9, 10}) {
        writeEvents(m_own + u"a.ics"_s, QByteArrayList(count, never) + QByteArrayList(20, over) +
                                            QByteArrayList{monthly});
        EXPECT_EQ(eventsOn({2026, 3, 10}), count == 9 ? u"10:00-10:00 a"_s : QString());
    }
}

TEST_F(CalendarStoreTest, calendars_areFilesFoldersAndThoseOfOtherPrograms)
{
    EXPECT_EQ(m_store.calendars().error, CalendarError::NotReady);
    EXPECT_EQ(m_store.events(QDateTime::currentDateTime(), QDateTime::currentDateTime(), {}).error,
              CalendarError::NotReady);
    const QByteArray event = "UID:1\nSUMMARY:here\nDTSTART:20260310T100000";
    writeEvents(m_own + u"b.ics"_s, {event},
                "X-WR-CALNAME:Home\\, sweet\n home\nX-APPLE-CALENDAR-COLOR:#11223344\n");
    writeEvents(m_own + u"c.ics"_s, {event}, "COLOR:RoyalBlue\n");
    writeEvents(m_own + u"a folder/1.ics"_s, {event}, "NAME:not this\n");
    writeEvents(m_own + u"a folder/2.ics"_s, {"UID:1\nSUMMARY:there\nDTSTART:20260310T090000"});
    write(m_own + u"a folder/color"_s, "#00ff00\n");
    write(m_own + u"no calendar/readme"_s, "hello");
    writeEvents(u"orage/orage.ics"_s, {event});
    const auto source = [](const QByteArray& name, const QByteArray& backend) {
        return "[Data Source]\nDisplayName=" + name +
               "\nEnabled=true\nParent=local-stub\n[Calendar]\nBackendName=" + backend +
               "\nColor=#abcdef\n";
    };
    write(u"sources/system-calendar.source"_s, source("Personal", "local"));
    write(u"sources/f00.source"_s, source("Far away", "caldav"));
    write(u"sources/f01.source"_s, source("Off", "local").replace("true", "false"));
    write(u"sources/f02.source"_s, "[Data Source]\nDisplayName=Mail\n[Mail Account]\n");
    write(u"sources/f03.source"_s, QByteArray(3000, '\xfe'));
    const QString pipe = m_folder.filePath(u"pipe"_s);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(pipe, m_folder.filePath(u"sources/f04.source"_s)));
    writeEvents(u"evolution/calendar/system/calendar.ics"_s,
                {"UID:1\nSUMMARY:mine\nDTSTART:20260310T110000"});

    EXPECT_EQ(eventsOn({2026, 3, 10}), u"09:00-09:00 there; 10:00-10:00 here; 10:00-10:00 here; "
                                       "10:00-10:00 here; 10:00-10:00 here; 11:00-11:00 mine"_s);
    QStringList calendars;
    for (const Calendar& calendar : m_store.calendars().calendars)
        calendars << calendar.title + u' ' + calendar.color.name();
    const QString none = m_store.calendars().calendars.at(3).color.name();
    EXPECT_EQ(calendars,
              (QStringList{u"a folder #00ff00"_s, u"Home, sweethome #112233"_s, u"c #4169e1"_s,
                           u"Orage "_s + none, u"Far away #abcdef"_s, u"Personal #abcdef"_s}));
    EXPECT_EQ(allCalendars().last(), u"system-calendar"_s);
    ASSERT_TRUE(QFile::remove(m_folder.filePath(u"sources/system-calendar.source"_s)));
    read({2026, 3, 10}, berlin);
    EXPECT_EQ(m_store.calendars().calendars.back().title, u"Personal"_s);
    const QDateTime noon({2026, 3, 10}, {0, 0}, berlin);
    EXPECT_EQ(m_store.events(noon, noon.addDays(1), {allCalendars().at(1)}).events.size(), 1U);
}

TEST(EvolutionObjectTest, text_tellsHowItHangsTogetherWithOthers)
{
    const auto parse = [](const QString& text) {
        const EvolutionObject object = EvolutionObject::parse(text);
        return object.uid + (object.recurs ? u" recurs"_s : QString());
    };
    EXPECT_EQ(parse(u"BEGIN:VEVENT\r\nUID;X=1:ab\r\n c d\r\nSUMMARY:x\r\n y\r\nUID:2\r\n"_s),
              u"abc d"_s);
    EXPECT_EQ(parse(u"rrule:FREQ=DAILY\nuid: 7 "_s), u"7 recurs"_s);
    EXPECT_EQ(parse(u"RECURRENCE-ID;TZID=x:20260101\n\n\r"_s), u" recurs"_s);
    EXPECT_EQ(parse(u"RDATES:1\nSUMMARY:a\n RRULE:b\nUID"_s), QString());
}

TEST_F(CalendarStoreTest, files_areReadAgainWhenTheyOrTheDayHaveChanged)
{
    const QString name = m_own + u"a.ics"_s;
    writeEvents(name, {"UID:1\nSUMMARY:one\nDTSTART:20260310T100000\nRRULE:FREQ=DAILY"});
    EXPECT_EQ(eventsOn({2026, 3, 10}), u"10:00-10:00 one"_s);
    EXPECT_EQ(eventsOn({2026, 3, 11}), u"10:00-10:00 one"_s);
    EXPECT_EQ(m_store
                  .events(QDate(2026, 3, 10).startOfDay(berlin),
                          QDate(2026, 3, 11).startOfDay(berlin), allCalendars())
                  .error,
              CalendarError::NotReady);

    // As large and of the same time, it is not looked into.
    QFile file(m_folder.filePath(name));
    const QDateTime modified = QFileInfo(file).lastModified();
    const auto overwrite = [&](const QByteArray& title, const QDateTime& time) {
        writeEvents(name, {"UID:1\nSUMMARY:" + title +
                           "\nDTSTART:20260310T100000\n"
                           "RRULE:FREQ=DAILY"});
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(time, QFileDevice::FileModificationTime);
        file.close();
    };
    overwrite("two", modified);
    EXPECT_EQ(eventsOn({2026, 3, 11}), u"10:00-10:00 one"_s);
    overwrite("two", modified.addSecs(1));
    EXPECT_EQ(eventsOn({2026, 3, 11}), u"10:00-10:00 two"_s);
    overwrite("three", modified.addSecs(1));
    EXPECT_EQ(eventsOn({2026, 3, 11}), u"10:00-10:00 three"_s);
    EXPECT_EQ(eventsOn({2026, 3, 11}, newYork), u"10:00-10:00 three"_s);
    ASSERT_TRUE(file.remove());
    EXPECT_EQ(eventsOn({2026, 3, 11}), u""_s);
    EXPECT_TRUE(m_store.calendars().calendars.empty());
}

} // namespace
} // namespace lumbrix::platform
