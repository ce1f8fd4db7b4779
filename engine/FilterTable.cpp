// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/FilterTable.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{
namespace
{
constexpr int usualLevel = 2;
} // namespace

QVariantMap FilterTable::getFiltersDictionary(const platform::UserDefaults& defaults)
{
    const auto stored = defaults.dictionaryForKey(u"filters"_s);
    return stored.value_or(QVariantMap{{u"All applications"_s, usualLevel}});
}

std::optional<int> FilterTable::levelForKey(const QString& key) const
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_filters.constFind(key);
    if (found == m_filters.constEnd())
        return std::nullopt;
    return levelOf(*found);
}

int FilterTable::levelOf(const QVariant& value)
{
    bool isNumber = false;
    const int level = value.toInt(&isNumber);
    return isNumber ? level : usualLevel;
}

QVariantMap FilterTable::filters() const
{
    const std::lock_guard lock(m_mutex);
    return m_filters;
}

void FilterTable::setFilters(const QVariantMap& filters)
{
    const std::lock_guard lock(m_mutex);
    m_filters = filters;
}

} // namespace lumbrix
