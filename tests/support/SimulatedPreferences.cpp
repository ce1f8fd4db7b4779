// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/support/SimulatedPorts.h"

namespace lumbrix::test
{

void SimulatedDockPreferences::synchronize()
{
    const std::lock_guard lock(m_state.mutex);
    m_orientation =
        m_state.dockOrientation.isNull() ? std::nullopt : std::optional(m_state.dockOrientation);
    m_magnification = m_state.dockMagnification;
    m_autohide = m_state.dockAutohide;
}

template <class T> std::optional<T> SimulatedUserDefaults::read(const QString& key) const
{
    const QVariant value = m_values.value(key);
    return value.metaType() == QMetaType::fromType<T>() ? std::optional(value.value<T>())
                                                        : std::nullopt;
}

std::int64_t SimulatedUserDefaults::integerForKey(const QString& key) const
{
    return read<qint64>(key).value_or(read<bool>(key).value_or(false) ? 1 : 0);
}

float SimulatedUserDefaults::floatForKey(const QString& key) const
{
    return read<float>(key).value_or(static_cast<float>(integerForKey(key)));
}

bool SimulatedUserDefaults::boolForKey(const QString& key) const { return integerForKey(key) != 0; }

std::optional<QVariantMap> SimulatedUserDefaults::dictionaryForKey(const QString& key) const
{
    return read<QVariantMap>(key);
}

std::optional<QStringList> SimulatedUserDefaults::arrayForKey(const QString& key) const
{
    return read<QStringList>(key);
}

std::optional<QByteArray> SimulatedUserDefaults::dataForKey(const QString& key) const
{
    return read<QByteArray>(key);
}

void SimulatedUserDefaults::setInteger(std::int64_t value, const QString& key)
{
    write(key, QVariant::fromValue(qint64(value)));
}

void SimulatedUserDefaults::setFloat(float value, const QString& key) { write(key, value); }

void SimulatedUserDefaults::setBool(bool value, const QString& key) { write(key, value); }

void SimulatedUserDefaults::setDictionary(const QVariantMap& value, const QString& key)
{
    write(key, value);
}

void SimulatedUserDefaults::setArray(const QStringList& value, const QString& key)
{
    write(key, value);
}

void SimulatedUserDefaults::setData(const QByteArray& value, const QString& key)
{
    write(key, value);
}

void SimulatedUserDefaults::removeObjectForKey(const QString& key)
{
    m_values.remove(key);
    m_hasUnsavedChanges = true;
}

bool SimulatedUserDefaults::synchronize()
{
    ++m_synchronizeCount;
    if (!m_isWritable)
        return false;
    m_hasUnsavedChanges = false;
    return true;
}

void SimulatedUserDefaults::write(const QString& key, const QVariant& value)
{
    m_values.insert(key, value);
    m_hasUnsavedChanges = true;
}

} // namespace lumbrix::test
