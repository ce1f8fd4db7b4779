// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/filters/FilterRows.h"

#include <algorithm>
#include <array>

#include "app/filters/ApplicationIcons.h"
#include "app/filters/FilterLevelTitle.h"
#include "app/filters/FilterSubject.h"
#include "engine/LXHandler.h"
#include "platform/Desktop.h"
#include "platform/Privacy.h"

namespace lumbrix
{
namespace
{

constexpr std::array identifiers{QLatin1String("application"), QLatin1String("filter")};

} // namespace

FilterRows::FilterRows(ApplicationIcons& icons) : m_icons(icons)
{
    connect(&icons, &ApplicationIcons::loaded, this, [this](const QString& bundle) {
        if (const int row = rowOfBundle(bundle); row >= 0) {
            const QModelIndex cell = index(row, ApplicationColumn);
            Q_EMIT dataChanged(cell, cell, {Qt::DecorationRole});
        }
    });
    reload();
}

void FilterRows::reload()
{
    beginResetModel();
    m_rows.clear();
    const QVariantMap filters = LXHandler::sharedHandler().filters();
    for (auto it = filters.cbegin(); it != filters.cend(); ++it)
        append(it.key(), FilterTable::levelOf(it.value()));
    QStringList others = LXHandler::sharedHandler().privateChoices().keys();
    others.sort();
    for (const QString& bundle : others)
        if (!filters.contains(bundle))
            append(bundle, SWElement::filterLevelOf(bundle).level);
    endResetModel();
}

void FilterRows::append(const QString& bundle, int level)
{
    const bool isPrivate = platform::desktop().privacy.isPrivate(bundle);
    m_rows.push_back({bundle, FilterSubject::name(bundle), level, isPrivate});
}

QString FilterRows::getRowName(int row) const
{
    return m_rows.at(static_cast<std::size_t>(row)).name;
}

QString FilterRows::getRowBundle(int row) const
{
    return m_rows.at(static_cast<std::size_t>(row)).bundle;
}

QString FilterRows::getRowFilter(int row) const { return FilterLevel::title(getRowLevel(row)); }

int FilterRows::getRowLevel(int row) const
{
    return m_rows.at(static_cast<std::size_t>(row)).level;
}

bool FilterRows::isRowPrivate(int row) const
{
    return m_rows.at(static_cast<std::size_t>(row)).isPrivate;
}

int FilterRows::rowOfBundle(const QString& bundle) const
{
    const auto found = std::ranges::find(m_rows, bundle, &Row::bundle);
    return found == m_rows.end() ? -1 : static_cast<int>(found - m_rows.begin());
}

QString FilterRows::objectValue(const QString& columnIdentifier, int row) const
{
    if (columnIdentifier == identifiers[ApplicationColumn])
        return getRowName(row);
    if (columnIdentifier == identifiers[FilterColumn])
        return isRowPrivate(row) ? tr("%1, private").arg(getRowFilter(row)) : getRowFilter(row);
    return {};
}

int FilterRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : numberOfRows();
}

int FilterRows::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : ColumnCount;
}

QVariant FilterRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const int row = index.row();
    if (role == Qt::DisplayRole) {
        const QString value =
            objectValue(identifiers.at(static_cast<std::size_t>(index.column())), row);
        return index.column() == FilterColumn
                   ? tr("%1: %2").arg(value, FilterLevel::summary(getRowLevel(row)))
                   : value;
    }
    if (index.column() != ApplicationColumn)
        return role == Qt::ToolTipRole ? FilterLevel::description(getRowLevel(row)) : QVariant();
    if (role == Qt::DecorationRole)
        return FilterSubject::icon(getRowBundle(row), m_icons);
    if (role == Qt::ToolTipRole)
        return FilterSubject::toolTip(getRowBundle(row));
    return {};
}

QVariant FilterRows::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::TextAlignmentRole)
        return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == ApplicationColumn ? tr("Application") : tr("Filter");
}

} // namespace lumbrix
