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
    /// As the table knows its columns; the numbers are their places.
    enum Column { Checkbox, CalendarTitle, ColumnCount };

    explicit CalendarPicker(QObject* parent = nullptr);
    ~CalendarPicker() override;

    /// Opens the sheet on that window, with what is known, and again with what the store reads
    /// then. Does not wait for the user. Raises it when it is open already.
    void showSheet(QWidget& preferencesWindow);
    QDialog* calendarPicker() const { return m_calendarPicker; } ///< null when it is closed

    // The rows of the table.
    void generateDataStore();
    int numberOfRowsInTableView() const { return static_cast<int>(m_calArray.size()); }
    /// A flag (1 or 0), a title; "" in any other column.
    QVariant objectValue(int column, int row) const;
    void setObjectValue(const QVariant& value, int column, int row);
    int getRowCheckbox(int row) const;
    QString getRowName(int row) const;
    QColor colorOfCalendarAtRow(int row) const;

    /// Keeps what is switched off now. What is kept of calendars that are not there now is dropped,
    /// unless the store failed to read all there are; before it has read any, nothing changes.
    void saveDefaults();

public Q_SLOTS:
    /// The sheet's button.
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
