// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The Filters pane of the preferences: a table of the filter levels, and the sheet that adds one or
// changes it.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariantMap>

#include "app/filters/ApplicationIcons.h"
#include "app/filters/FilterRows.h"

class QAbstractButton;
class QCheckBox;
class QComboBox;
class QDialog;
class QLabel;
class QTableView;
class QWidget;

namespace lumbrix
{

/// Main thread. Edits the engine's dictionary in place, so that every change takes effect at once,
/// and stores it.
class IgnoreTable final : public QObject
{
    Q_OBJECT

public:
    /// `pane` is the widget of the interface file "PreferencesFilters"; it owns this object.
    explicit IgnoreTable(QWidget& pane);

    /// Loads the stored levels, or the defaults of a new user.
    static QVariantMap getFiltersDictionary();

    QTableView& tableView() { return m_tableView; }
    QDialog& addFilterWindow() { return m_addFilterWindow; }
    QComboBox& applications() { return *m_applications; }
    QComboBox& filterLevels() { return *m_filterLevels; }
    QCheckBox& privateBox() { return *m_privateBox; }
    const FilterRows& rows() const { return m_rows; }

    // What the buttons, keys and clicks do. Opening the sheet returns at once; it blocks only the
    // preferences window. While it is open, none of these opens it again.
    void addButtonPressed();
    void deleteButtonPressed();
    void itemClicked(int row); ///< −1 = beside the rows
    /// OK. Stores nothing unless an application and a level are chosen; with them, whether it is
    /// private.
    void addFilter();
    void cancelFilter();
    void applicationsButtonClicked();
    void saveDefaults();

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void setUpTable();
    void setUpSheet();
    void generateAppsMenu();
    void generateFiltersMenu();
    void appendApplication(const QString& name, const QString& subject);
    void showDescription();
    /// The checkbox tells what holds for the chosen application; nothing is private by the default.
    void showPrivacy();
    /// What is so from the start is no choice.
    void choosePrivacy(const QString& bundle, bool isPrivate);
    void runSheet(const QString& title);
    void sheetDidEnd(int code);
    void reloadData(const QString& selected);
    int selectedRow() const; ///< −1 when there is none

    QWidget& m_pane;
    QTableView& m_tableView;
    QDialog& m_addFilterWindow; ///< owned by the pane
    QComboBox* m_applications = nullptr;
    QComboBox* m_filterLevels = nullptr;
    QLabel* m_levelDescription = nullptr;
    QCheckBox* m_privateBox = nullptr;
    QAbstractButton* m_deleteButton = nullptr;
    ApplicationIcons m_icons;
    FilterRows m_rows;
};

} // namespace lumbrix
