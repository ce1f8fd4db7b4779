// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <QtCore/QPointer>

#include <QtCore/QLocale>

#include "preview/EventLine.h"
#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

using platform::ApplicationRole;
using ItemKind = SimulatedDockItem::Kind;

/// At half past nine on a Wednesday, with two calendars; the calendar application does not run.
class CalPreviewTest : public EngineFixture
{
protected:
    CalPreviewTest()
    {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        calendar().setShouldShowCal(true);
        desk.wallClock().set(at(9, 30));
        store.allCalendars = {{u"work"_s, u"Work"_s, Qt::red}, {u"home"_s, u"Home"_s, Qt::blue}};
        desk.addDockItem({u"Calendar"_s, ItemKind::Application, calendarURL});
        desk.addDockItem({u"BusyCal"_s, ItemKind::Application, QUrl(u"file:///BusyCal.app"_s)});
    }
    ~CalPreviewTest() override { QLocale::setDefault(QLocale::c()); }

    CalPreview& calendar() { return *CalPreview::sharedPreview(ports()); }
    static QDateTime at(int hour, int minute, int day = 11)
    {
        return QDateTime({2026, 3, day}, {hour, minute}, QTimeZone("Europe/Berlin"));
    }
    void addEvent(const QString& title, const QDateTime& start, const QDateTime& end,
                  const QString& calendar = u"work"_s)
    {
        store.allEvents.push_back({calendar, title, start, end});
    }
    /// Titles "Event 1", "Event 2" ...
    void addEvents(int count)
    {
        for (int i = 0; i < count; ++i)
            addEvent(u"Event %1"_s.arg(i + 1), at(10, 5 * i), at(11, 0));
    }
    static QList<EventLine*> fields(const ScreenyView& preview)
    {
        return preview.iCalView()->findChildren<EventLine*>();
    }
    /// The lines on the screen, from the top; none when no calendar preview is up.
    QStringList lines() const
    {
        QStringList lines;
        for (const ScreenyViewPtr& preview : engine().screenyViews()) {
            if (!preview->iCal() || !preview->window()->isFront())
                return {u"something else"_s};
            for (const EventLine* field : fields(*preview))
                lines << field->text();
        }
        return lines;
    }
    QStringList commands()
    {
        loop.runUntilIdle();
        const auto given =
            desk.with([](SimulatedState& state) { return std::exchange(state.commands, {}); });
        return {given.begin(), given.end()};
    }

    const QUrl calendarURL{u"file:///Calendar.app"_s};
    SimulatedCalendarStore& store = desk.calendarStore();
};

TEST_F(CalPreviewTest, icon_hovered_listsTheRestOfToday)
{
    addEvent(u"over"_s, at(8, 0), at(9, 30));
    addEvent(u"Standup"_s, at(9, 15), at(9, 45));
    addEvent(u"Lunch"_s, at(12, 0), at(13, 30), u"home"_s);
    addEvent(u"Night <b>shift</b>"_s, at(22, 0), at(6, 0, 12));
    addEvent(u"tomorrow"_s, at(0, 0, 12), at(1, 0, 12));
    addEvent(u"Whole day"_s, at(0, 0), at(0, 0, 12));
    hover(u"Calendar"_s);
    EXPECT_EQ(lines(), (QStringList{u"12:00 AM - 12:00 AM Whole day"_s,
                                    u"9:15 AM - 9:45 AM Standup"_s, u"12:00 PM - 1:30 PM Lunch"_s,
                                    u"10:00 PM - 6:00 AM Night <b>shift</b>"_s}));
    leave(1);
    EXPECT_TRUE(engine().screenyViews().empty());

    desk.userDefaults().setArray({u"gone"_s, u"work"_s}, u"calendars"_s);
    desk.leaveDock();
    hover(u"Calendar"_s);
    EXPECT_EQ(lines(), QStringList{u"12:00 PM - 1:30 PM Lunch"_s});
    leave(1);
    desk.userDefaults().setArray({u"home"_s, u"work"_s}, u"calendars"_s);
    hover(u"Calendar"_s);
    EXPECT_EQ(lines(), QStringList{u"No events for today."_s});

    const auto human = [&] { return CalPreview::humanTimeFromDate(at(9, 5), at(17, 0)); };
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(human(), u"09:05 - 17:00"_s);
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(human(), u"09:05 - 17:00"_s) << "where no language is set there are seconds";
}

TEST_F(CalPreviewTest, panel_isAsLargeAsItsLines_inTheColourOfTheStyle)
{
    for (const auto& [style, events, expectedLines] :
         {std::tuple{0, 3, 3}, {1, 3, 3}, {0, 10, 10}, {1, 11, 10}, {2, 0, 1}}) {
        settings().previewStyle = style;
        engine().clearCache();
        store.allEvents.clear();
        addEvents(events);
        hover(u"Calendar"_s);
        ASSERT_EQ(engine().screenyViews().size(), 1U);
        const ScreenyView& shown = preview(0);
        const QSizeF size = shown.window()->frame().size();
        EXPECT_EQ(size.height(), 17 * expectedLines + 40);
        ASSERT_EQ(fields(shown).size(), expectedLines);
        qreal widest = 0;
        for (int i = 0; i < expectedLines; ++i) {
            const EventLine& field = *fields(shown)[i];
            widest = std::max(widest, EventLine::widthOf(field.text()));
            EXPECT_EQ(field.color(), QColor(style == 0 ? Qt::black : Qt::white));
            // From the top: what is left below is 17 points for each further line, and some.
            EXPECT_EQ(field.geometry().topLeft(), QPoint(20, 21 + 17 * i));
            EXPECT_EQ(field.height(), 17);
        }
        EXPECT_NEAR(size.width(), 30 + widest, 0.01);
        EXPECT_LE(std::abs(shown.iCalView()->width() - shown.contentView()->width()), 1);
        EXPECT_EQ(shown.iCalView()->height(), shown.contentView()->height());
        EXPECT_TRUE(shown.titleString().isEmpty());
        EXPECT_TRUE(shown.window()->findChild<QWidget*>(u"image"_s)->isHidden());
        // Above the icon, in the middle, less what every row is moved to the left.
        EXPECT_NEAR(shown.window()->frame().center().x(),
                    desk.dockItemFrame(u"Calendar"_s).center().x() - 6, 1);
        leave(1);
    }
    store.allEvents.clear();
    addEvent(QString(500, u'W'), at(10, 0), at(11, 0));
    hover(u"Calendar"_s);
    EXPECT_EQ(preview(0).window()->frame().size(), QSizeF(730, 57));
    EXPECT_EQ(fields(preview(0)).first()->width(), 700);
    // It ends in dots on the line, where a cut letter would reach up.
    const QImage end = fields(preview(0)).first()->grab({690, 0, 10, 7}).toImage();
    QImage blank = end;
    blank.fill(end.pixel(0, 0));
    EXPECT_TRUE(end == blank);
    // The panel is one of windows again.
    leave(1);
    settings().previewStyle = 0;
    add(u"Editor"_s, 1);
    hover(u"Editor"_s);
    EXPECT_EQ(shown(), u"Editor 1"_s);
    EXPECT_FALSE(preview(0).iCalView());
    EXPECT_FALSE(preview(0).window()->findChild<QWidget*>(u"image"_s)->isHidden());
}

TEST_F(CalPreviewTest, iconsHoveredAgain_rebuildOnlyForTheOtherKindOfCalendar)
{
    addEvents(2);
    hover(u"Calendar"_s);
    const ScreenyViewPtr first = engine().screenyViews().at(0);
    const QPointer<QWidget> view = first->iCalView();
    EXPECT_FALSE(first->BusyCal());
    leave();
    hover(u"Calendar"_s);
    EXPECT_EQ(engine().screenyViews().at(0), first);
    EXPECT_EQ(first->iCalView(), view) << "the same panel was filled again";
    hover(u"BusyCal"_s);
    ASSERT_EQ(engine().screenyViews().size(), 1U);
    EXPECT_TRUE(preview(0).BusyCal());
    EXPECT_TRUE(view.isNull()) << "made anew";
    EXPECT_EQ(lines().size(), 2);
}

TEST_F(CalPreviewTest, store_takingItsTime_neverKeepsTheProgramWaiting)
{
    addEvents(2);
    store.delay = 2;
    hover(u"Calendar"_s);
    loop.advance(1.9);
    EXPECT_TRUE(engine().screenyViews().empty()) << "shown without knowing the events";
    loop.advance(0.2);
    EXPECT_EQ(lines().size(), 2);
    leave(1);

    // What is known is shown at once, and replaced by what has changed.
    addEvents(1);
    hover(u"Calendar"_s);
    EXPECT_EQ(lines().size(), 2);
    loop.advance(2.1);
    EXPECT_EQ(lines().size(), 3);
    EXPECT_EQ(preview(0).window()->frame().height(), 17 * 3 + 40);
    leave(1);

    // Another day, for which nothing is known; the Dock has a menu open, or the mouse has left,
    // when that comes.
    for (const bool hasMenu : {true, false}) {
        desk.wallClock().set(at(9, 0, hasMenu ? 14 : 12));
        hover(u"Calendar"_s);
        loop.advance(1);
        hasMenu ? desk.openDockMenu() : leave(3);
        EXPECT_TRUE(engine().screenyViews().empty());
        EXPECT_EQ(panelsOnScreen(), 0);
        leave();
    }
    add(u"Editor"_s, 1);
    hover(u"Calendar"_s);
    EXPECT_EQ(lines(), QStringList{u"No events for today."_s});
    hover(u"Editor"_s);
    loop.advance(3);
    EXPECT_EQ(shown(), u"Editor 1"_s);
    leave(1);
    store.isFailing = true;
    desk.wallClock().set(at(9, 0, 13));
    hover(u"Calendar"_s);
    loop.advance(2.1);
    EXPECT_EQ(lines(), QStringList{u"No events for today."_s});
}

TEST_F(CalPreviewTest, iconHoveredAgainWhileReading_showsWhatIsReadThen)
{
    addEvents(2);
    store.delay = 2;
    const auto hoverAgain = [this] {
        hover(u"Calendar"_s);
        loop.advance(1);
        leave();
        hover(u"Calendar"_s);
        loop.advance(1.1);
    };
    hoverAgain();
    EXPECT_EQ(lines().size(), 2) << "waited for a second time";
    leave(3);
    EXPECT_EQ(std::exchange(store.refreshes, 0), 1);

    addEvents(1);
    hoverAgain();
    EXPECT_EQ(lines().size(), 3) << "as they were before";
    leave(1);
    // The other calendar's icon has no use for a second reading either, but another day has.
    store.refreshes = 0;
    addEvents(1);
    hover(u"Calendar"_s);
    loop.advance(1);
    hover(u"BusyCal"_s);
    loop.advance(1.1);
    EXPECT_EQ(lines().size(), 4);
    EXPECT_TRUE(preview(0).BusyCal());
    EXPECT_EQ(store.refreshes, 1);
    leave(1);
    hover(u"Calendar"_s);
    leave(1);
    desk.wallClock().set(at(9, 0, 12));
    addEvent(u"Standup"_s, at(9, 15, 12), at(9, 45, 12));
    hover(u"Calendar"_s);
    loop.advance(4);
    EXPECT_EQ(lines(), QStringList{u"9:15 AM - 9:45 AM Standup"_s});
}

TEST_F(CalPreviewTest, modifierKeys_decideWhetherItIsShown)
{
    const auto shows = [this](std::uint32_t held) {
        desk.setModifiers(held);
        hover(u"Calendar"_s);
        const bool isShown = !lines().isEmpty();
        leave(1);
        return isShown;
    };
    settings().showInDock = 0; // is about windows
    EXPECT_TRUE(shows(0));
    settings().hidePreviews = 1;
    settings().hidePreviewsKeycode = 1;
    EXPECT_FALSE(shows(0));
    EXPECT_TRUE(shows(option));
    settings().onlyIfPressed = 1;
    settings().onlyIfKeycode = 2;
    EXPECT_FALSE(shows(option));
    EXPECT_TRUE(shows(option | control));
    calendar().setShouldShowCal(false);
    EXPECT_FALSE(shows(option | control)) << "it is an application like any other then";
}

TEST_F(CalPreviewTest, click_raisesTheCalendarOrStartsIt)
{
    hover(u"Calendar"_s);
    preview(0).clickImage();
    EXPECT_EQ(commands(), (QStringList{u"launch iCal"_s, u"launch file:///Calendar.app 0x10000"_s}))
        << "first by the usual name, then as what it is";
    hover(u"BusyCal"_s);
    preview(0).clickImage();
    EXPECT_EQ(commands().value(0), u"launch BusyCal"_s);
    leave(1);

    // A calendar is known by what it is as well as by its name; its window stands behind the lines.
    const Pid pid = desk.addApplication({.name = u"Kalender"_s, .role = ApplicationRole::Calendar});
    const WindowID window = desk.addWindow(pid, {u"March"_s});
    loop.runUntilIdle();
    hover(u"Kalender"_s);
    ASSERT_EQ(lines(), QStringList{u"No events for today."_s});
    ASSERT_TRUE(preview(0).elementRef());
    EXPECT_EQ(preview(0).elementRef()->wid(), window);
    loop.advance(0.1);
    EXPECT_FALSE(preview(0).image().isNull());
    EXPECT_TRUE(preview(0).window()->findChild<QWidget*>(u"image"_s)->isHidden());
    // Beside an icon that has moved, the lines still have their panel to themselves.
    settings().showFastKeys = true;
    settings().showSpaces = 1;
    const QPointF place = preview(0).window()->frame().topLeft();
    desk.with([](SimulatedState& state) {
        for (auto& item : state.dockItems)
            item.frame.translate(20, 0);
    });
    desk.tellDockItemsChanged();
    loop.runUntilIdle();
    EXPECT_EQ(preview(0).window()->frame().topLeft(), place + QPointF(20, 0));
    EXPECT_EQ(numbers(), u""_s);
    desk.addWindow(add(u"Editor"_s, 1), {u"In front"_s});
    preview(0).clickImage();
    loop.runUntilIdle();
    EXPECT_EQ(desk.stacking().front(), window);
}

TEST_F(CalPreviewTest, nextDate_onDaysOfAnotherLength_isTheNextMidnight)
{
    const QTimeZone berlin("Europe/Berlin");
    const auto next = [&](const QDate& date, const QTime& time) {
        desk.wallClock().set(QDateTime(date, time, berlin));
        return calendar().nextDate();
    };
    EXPECT_EQ(next({2026, 10, 25}, {0, 30}), QDateTime({2026, 10, 26}, {0, 0}, berlin));
    EXPECT_EQ(next({2026, 3, 28}, {23, 30}), QDateTime({2026, 3, 29}, {0, 0}, berlin));
    EXPECT_EQ(next({2026, 12, 31}, {23, 59, 59}), QDateTime({2027, 1, 1}, {0, 0}, berlin));
}

} // namespace
} // namespace lumbrix::test
