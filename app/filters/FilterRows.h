// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The rows of the filter table: one for each entry of the engine's dictionary of filter levels, in
// the order of the dictionary, then one for each application that the user has but made private or
// not.
#pragma once

#include <QtCore/QAbstractTableModel>

#include <vector>

namespace lumbrix
{

class ApplicationIcons;

/// Main thread. The icons must outlive it.
class FilterRows final : public QAbstractTableModel
{
    Q_OBJECT

public:
    enum Column { ApplicationColumn, FilterColumn, ColumnCount };

    explicit FilterRows(ApplicationIcons& icons);

    /// Reloads the rows from the dictionary.
    void reload();

    int numberOfRows() const { return static_cast<int>(m_rows.size()); }
    // The row must exist.
    QString getRowName(int row) const;
    QString getRowBundle(int row) const;
    QString getRowFilter(int row) const;
    int getRowLevel(int row) const;
    bool isRowPrivate(int row) const;
    /// −1 when there is none.
    int rowOfBundle(const QString& bundle) const;
    /// The cell's text by the column's identifier, "application" or "filter" (which also tells
    /// whether it is private); empty for others.
    QString objectValue(const QString& columnIdentifier, int row) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        QString bundle;
        QString name;
        int level = 0;
        bool isPrivate = false;
    };

    void append(const QString& bundle, int level);

    ApplicationIcons& m_icons;
    std::vector<Row> m_rows;
};

} // namespace lumbrix
