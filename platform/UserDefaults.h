// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The user's settings store: named values of a few types.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariantMap>

#include <cstdint>
#include <optional>

namespace lumbrix::platform
{

/// Main thread. A key that was never written, or whose value cannot be read as the requested type,
/// returns 0, 0.0, false or null; there are no registered fallbacks.
class UserDefaults
{
public:
    virtual ~UserDefaults() = default;

    virtual std::int64_t integerForKey(const QString& key) const = 0;
    virtual float floatForKey(const QString& key) const = 0;
    virtual bool boolForKey(const QString& key) const = 0;
    virtual std::optional<QVariantMap> dictionaryForKey(const QString& key) const = 0;
    virtual std::optional<QStringList> arrayForKey(const QString& key) const = 0;
    virtual std::optional<QByteArray> dataForKey(const QString& key) const = 0;

    virtual void setInteger(std::int64_t value, const QString& key) = 0;
    virtual void setFloat(float value, const QString& key) = 0;
    virtual void setBool(bool value, const QString& key) = 0;
    virtual void setDictionary(const QVariantMap& value, const QString& key) = 0;
    virtual void setArray(const QStringList& value, const QString& key) = 0;
    virtual void setData(const QByteArray& value, const QString& key) = 0;
    virtual void removeObjectForKey(const QString& key) = 0;

    /// Writes changes and reads what other programs wrote. False if writing failed; the values are
    /// kept and the next call tries again.
    virtual bool synchronize() = 0;
};

} // namespace lumbrix::platform
