// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/CalendarPicker.h"

#include <QtCore/QAbstractTableModel>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include <algorithm>

#include "engine/CalendarChoice.h"
#include "platform/Desktop.h"
#include "platform/StringLiterals.h"
#include "platform/WallClock.h"
#include "preview/DisplayText.h"
#include "preview/InterfaceFile.h"

namespace lumbrix
{
namespace
{

using platform::Calendar;
using platform::CalendarError;

constexpr int checkboxColumnWidth = 30;
constexpr int rowHeight = 22;

} // namespace

/// The table's model: the picker's rows.
class CalendarPicker::Model final : public QAbstractTableModel
{
public:
    explicit Model(CalendarPicker& picker) : m_picker(picker) {}

    void reset()
    {
        beginResetModel();
        endResetModel();
    }

    int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : m_picker.numberOfRowsInTableView();
    }
    int columnCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : ColumnCount;
    }
    QVariant data(const QModelIndex& index, int role) const override
    {
        const bool isCheckbox = index.column() == Checkbox;
        if (role == Qt::CheckStateRole && isCheckbox)
            return m_picker.getRowCheckbox(index.row()) ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::DecorationRole && isCheckbox)
            return m_picker.colorOfCalendarAtRow(index.row());
        if (role == Qt::AccessibleTextRole)
            return m_picker.getRowName(index.row());
        if (role == Qt::DisplayRole && !isCheckbox)
            return displayText(m_picker.objectValue(index.column(), index.row()).toString());
        return {};
    }
    bool setData(const QModelIndex& index, const QVariant& value, int role) override
    {
        if (role != Qt::CheckStateRole || index.column() != Checkbox)
            return false;
        m_picker.setObjectValue(value.toInt() != Qt::Unchecked, Checkbox, index.row());
        Q_EMIT dataChanged(index, index, {role});
        return true;
    }
    Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        const Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
        return index.column() == Checkbox ? flags | Qt::ItemIsUserCheckable : flags;
    }

private:
    CalendarPicker& m_picker;
};

CalendarPicker::CalendarPicker(QObject* parent)
    : QObject(parent), m_model(std::make_unique<Model>(*this))
{
}

CalendarPicker::~CalendarPicker() { delete m_calendarPicker; }

void CalendarPicker::showSheet(QWidget& preferencesWindow)
{
    if (m_calendarPicker) {
        m_calendarPicker->raise();
        m_calendarPicker->activateWindow();
        return;
    }
    std::unique_ptr<QWidget> loaded = loadInterface(platform::desktop(), u"CalendarPicker"_s);
    auto* sheet = qobject_cast<QDialog*>(loaded.get());
    auto* table = loaded ? loaded->findChild<CalTableView*>(u"tableView"_s) : nullptr;
    auto* button = loaded ? loaded->findChild<QPushButton*>(u"endPicking"_s) : nullptr;
    if (!sheet || !table || !button)
        return;
    static_cast<void>(loaded.release()); // owned by the preferences window now
    sheet->setParent(&preferencesWindow, Qt::Dialog | Qt::Sheet);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->setWindowRole(preferencesWindow.windowRole());
    m_calendarPicker = sheet;
    m_tableView = table;

    table->setModel(m_model.get());
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setMinimumSectionSize(checkboxColumnWidth);
    table->setColumnWidth(Checkbox, checkboxColumnWidth);
    table->verticalHeader()->setDefaultSectionSize(rowHeight);
    connect(button, &QPushButton::clicked, this, &CalendarPicker::endPicking);
    // Changes apply at once and cannot be cancelled, so every way of closing the sheet is the same.
    connect(sheet, &QDialog::rejected, this, &CalendarPicker::saveDefaults);

    m_error = CalendarError::NotReady;
    generateDataStore();
    sheet->open();
    const platform::Desktop& desktop = platform::desktop();
    const QDateTime now = desktop.wallClock.now();
    desktop.calendarStore.refresh(platform::WallClock::startOfDay(now),
                                  platform::WallClock::endOfDay(now),
                                  [self = QPointer(this), opened = QPointer(sheet)] {
                                      if (self && opened)
                                          self->generateDataStore();
                                  });
}

void CalendarPicker::generateDataStore()
{
    QStringList disabled;
    for (const Calendar& calendar : CalendarChoice::getDisabledCalendars(platform::desktop()))
        disabled << calendar.uid;
    // Use what the user has changed on the sheet by now.
    for (std::size_t row = 0; row < m_calArray.size() && m_error != CalendarError::NotReady;
         ++row) {
        disabled.removeAll(m_calArray[row].uid);
        if (!m_checkboxes[row])
            disabled << m_calArray[row].uid;
    }
    const platform::CalendarList list = platform::desktop().calendarStore.calendars();
    m_error = list.error;
    m_calArray.clear();
    m_checkboxes.clear();
    for (const Calendar& calendar : list.calendars) {
        m_checkboxes.push_back(disabled.removeAll(calendar.uid) ? 0 : 1);
        m_calArray.push_back(calendar);
    }
    showRows();
}

void CalendarPicker::showRows()
{
    m_model->reset();
    if (m_calendarPicker) {
        if (auto* label = m_calendarPicker->findChild<QLabel*>(u"noCalendars"_s))
            label->setVisible(m_error != CalendarError::NotReady && m_calArray.empty());
    }
}

int CalendarPicker::getRowCheckbox(int row) const
{
    return row >= 0 && row < numberOfRowsInTableView() ? m_checkboxes[static_cast<std::size_t>(row)]
                                                       : 0;
}

QString CalendarPicker::getRowName(int row) const
{
    return row >= 0 && row < numberOfRowsInTableView()
               ? m_calArray[static_cast<std::size_t>(row)].title
               : QString();
}

QColor CalendarPicker::colorOfCalendarAtRow(int row) const
{
    return row >= 0 && row < numberOfRowsInTableView()
               ? m_calArray[static_cast<std::size_t>(row)].color
               : QColor();
}

QVariant CalendarPicker::objectValue(int column, int row) const
{
    switch (column) {
    case Checkbox:
        return getRowCheckbox(row);
    case CalendarTitle:
        return getRowName(row);
    default:
        return QString();
    }
}

void CalendarPicker::setObjectValue(const QVariant& value, int column, int row)
{
    if (column == Checkbox && row >= 0 && row < numberOfRowsInTableView())
        m_checkboxes[static_cast<std::size_t>(row)] = value.toBool() ? 1 : 0;
}

void CalendarPicker::saveDefaults()
{
    if (m_error == CalendarError::NotReady)
        return;
    QStringList disabled;
    for (std::size_t row = 0; row < m_calArray.size(); ++row)
        if (!m_checkboxes[row])
            disabled << m_calArray[row].uid;
    if (m_error == CalendarError::Failed) {
        for (const QString& uid : CalendarChoice::disabledUIDs(platform::desktop().userDefaults))
            if (std::ranges::find(m_calArray, uid, &Calendar::uid) == m_calArray.end())
                disabled << uid;
    }
    CalendarChoice::setDisabledUIDs(platform::desktop().userDefaults, disabled);
}

void CalendarPicker::endPicking()
{
    saveDefaults();
    if (m_calendarPicker)
        m_calendarPicker->done(1);
}

} // namespace lumbrix
