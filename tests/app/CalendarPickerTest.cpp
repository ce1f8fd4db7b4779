// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/CalendarPicker.h"

#include <QtTest/QTest>
#include <QtWidgets/QPushButton>

#include "engine/CalendarChoice.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{
namespace
{

class CalendarPickerTest : public DesktopFixture
{
protected:
    CalendarPickerTest()
    {
        store.allCalendars = {{u"w"_s, u"Work"_s, Qt::red},
                              {u"h"_s, u"Home\n<b>"_s, Qt::blue},
                              {u"t"_s, u"Team"_s, Qt::green}};
    }
    void open()
    {
        picker.showSheet(preferences);
        loop.runUntilIdle();
        ASSERT_TRUE(picker.calendarPicker());
    }
    CalTableView& table() const
    {
        return *picker.calendarPicker()->findChild<CalTableView*>(u"tableView"_s);
    }
    void clickCell(int row, int column) const
    {
        QTest::mouseClick(table().viewport(), Qt::LeftButton, {},
                          table().visualRect(table().model()->index(row, column)).center());
    }
    void finish()
    {
        picker.calendarPicker()->findChild<QPushButton*>(u"endPicking"_s)->click();
        loop.runUntilIdle();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(picker.calendarPicker());
    }
    QString rows() const
    {
        QString rows;
        for (int row = 0; row < picker.numberOfRowsInTableView(); ++row)
            rows += picker.getRowCheckbox(row) ? u'+' : u'-';
        return rows;
    }
    QStringList saved()
    {
        return desk.userDefaults().arrayForKey(u"calendars"_s).value_or(QStringList());
    }

    SimulatedCalendarStore& store = desk.calendarStore();
    QWidget preferences;
    CalendarPicker picker;
};

TEST_F(CalendarPickerTest, boxes_clickedAndTyped_switchCalendarsOff)
{
    desk.userDefaults().setArray({u"deleted"_s, u"t"_s}, u"calendars"_s);
    open();
    EXPECT_EQ(rows(), u"++-"_s);
    EXPECT_TRUE(picker.calendarPicker()->isModal());
    EXPECT_EQ(picker.calendarPicker()->parentWidget(), &preferences);
    EXPECT_EQ(table().model()->index(1, CalendarPicker::CalendarTitle).data().toString(),
              u"Home <b>"_s);
    EXPECT_EQ(picker.objectValue(7, 0), QString());
    EXPECT_EQ(picker.colorOfCalendarAtRow(2), QColor(Qt::green));

    clickCell(0, CalendarPicker::Checkbox);
    clickCell(1, CalendarPicker::CalendarTitle); // read only
    EXPECT_EQ(rows(), u"-+-"_s);
    table().setCurrentIndex(table().model()->index(2, CalendarPicker::Checkbox));
    QTest::keyClick(&table(), Qt::Key_Space);
    EXPECT_EQ(rows(), u"-++"_s);
    EXPECT_EQ(saved().size(), 2) << "not before the sheet is closed";
    finish();
    EXPECT_EQ(saved(), QStringList{u"w"_s});
    EXPECT_FALSE(desk.userDefaults().hasUnsavedChanges());
    ASSERT_EQ(CalendarChoice::getAllowedCalendars(ports()).size(), 2U);
    EXPECT_EQ(CalendarChoice::getAllowedCalendars(ports())[0].uid, u"h"_s);
    EXPECT_EQ(CalendarChoice::getDisabledCalendars(ports())[0].uid, u"w"_s);
}

TEST_F(CalendarPickerTest, calendarsThatComeLateOrNotAtAll_loseNoChoice)
{
    desk.userDefaults().setArray({u"t"_s, u"away"_s}, u"calendars"_s);
    store.delay = 1;
    open();
    EXPECT_EQ(rows(), u""_s);
    finish();
    EXPECT_EQ(saved(), (QStringList{u"t"_s, u"away"_s})) << "closed before any was known";
    loop.advance(2);

    open();
    EXPECT_EQ(rows(), u"++-"_s);
    clickCell(0, CalendarPicker::Checkbox);
    store.allCalendars.insert(store.allCalendars.begin(), {u"new"_s, u"New"_s, Qt::black});
    loop.advance(2);
    EXPECT_EQ(rows(), u"+-+-"_s) << "the change on the sheet stands";
    store.isFailing = true;
    QTest::keyClick(picker.calendarPicker(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(saved(), (QStringList{u"w"_s, u"t"_s}));

    open();
    loop.advance(2);
    EXPECT_EQ(rows(), u""_s);
    finish();
    EXPECT_EQ(saved(), (QStringList{u"w"_s, u"t"_s})) << "a store that failed has deleted nothing";
}

TEST_F(CalendarPickerTest, checkbox_isTintedAndChecked)
{
    const auto box = [](const QColor& color, bool checked) {
        return CalTableView::checkboxWithColor(color, checked, 2).toImage();
    };
    const QImage red = box(Qt::red, false);
    EXPECT_EQ(red.size(), QSize(28, 32));
    EXPECT_NE(red, box(Qt::red, true));
    EXPECT_EQ(red, box(Qt::red, false)) << "the tint of one has got into the next";
    const QColor middle = red.pixelColor(14, 20);
    EXPECT_GT(middle.red(), 240);
    EXPECT_LT(middle.green(), 60);
    EXPECT_GT(box(Qt::blue, false).pixelColor(14, 20).blue(), 240);
    EXPECT_EQ(red.pixelColor(0, 0).alpha(), 0);
}

} // namespace
} // namespace lumbrix::test
