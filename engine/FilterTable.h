// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Per-application filter levels by bundle identifier, with "All applications" as the default.
#pragma once

#include <QtCore/QVariantMap>

#include <mutex>

#include "model/FilterLevels.h"
#include "platform/UserDefaults.h"

namespace lumbrix
{

/// Any thread: the scanner asks for levels while the main thread edits them.
class FilterTable final : public FilterLevels
{
public:
    /// The stored dictionary, or the default one of a new user. Main thread.
    static QVariantMap getFiltersDictionary(const platform::UserDefaults& defaults);

    /// The level for a stored value. Files may be edited by hand: a value that is not a number
    /// means the default level.
    static int levelOf(const QVariant& value);

    std::optional<int> levelForKey(const QString& key) const override;
    QVariantMap filters() const;
    void setFilters(const QVariantMap& filters);

private:
    mutable std::mutex m_mutex;
    QVariantMap m_filters;
};

} // namespace lumbrix
