// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The sheet that lets the user switch calendars off.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QVariant>
#include <QtWidgets/QDialog>

#include <memory>
#include <vector>

#include "platform/CalendarStore.h"
#include "preview/CalTableView.h"

namespace lumbrix
{

/// Main thread.
class CalendarPicker final : public QObject
{
    Q_OBJECT

public:
    /// The table's columns; the numbers are their indices.
    enum Column { Checkbox, CalendarTitle, ColumnCount };

    explicit CalendarPicker(QObject* parent = nullptr);
    ~CalendarPicker() override;

    /// Opens the sheet on that window with the calendars known so far, and updates it when the
    /// store has read them again. Does not wait for the user. If the sheet is already open, raises
    /// it.
    void showSheet(QWidget& preferencesWindow);
    QDialog* calendarPicker() const { return m_calendarPicker; } ///< null when it is closed

    // The rows of the table.
    void generateDataStore();
    int numberOfRowsInTableView() const { return static_cast<int>(m_calArray.size()); }
    /// The value of a cell: a flag (1 or 0) or a title; "" for an unknown column.
    QVariant objectValue(int column, int row) const;
    void setObjectValue(const QVariant& value, int column, int row);
    int getRowCheckbox(int row) const;
    QString getRowName(int row) const;
    QColor colorOfCalendarAtRow(int row) const;

    /// Stores which calendars are switched off now. Entries of calendars that no longer exist are
    /// dropped, unless the store could not read all calendars. Does nothing before the store has
    /// read any.
    void saveDefaults();

public Q_SLOTS:
    /// The action of the sheet's button.
    void endPicking();

private:
    class Model;

    void showRows();

    QPointer<QDialog> m_calendarPicker;
    QPointer<CalTableView> m_tableView;
    const std::unique_ptr<Model> m_model;
    std::vector<platform::Calendar> m_calArray;
    std::vector<int> m_checkboxes; ///< 1 = shown, 0 = switched off; as many as calendars
    platform::CalendarError m_error = platform::CalendarError::NotReady;
};

} // namespace lumbrix
