// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The notation of values and names in the settings file, which people can read and edit: 243, 0.5,
// true, text, "text with edges ", a list: one, "two, or three", bytes: @data(\x00abc).
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QVariant>

#include <cstdint>
#include <optional>

namespace lumbrix::platform::inivalue
{

QByteArray encodeName(const QString& name);
QString decodeName(const QByteArray& text);

/// Integers, reals, booleans, strings and lists of strings; everything else becomes JSON.
QByteArray encode(const QVariant& value);
QVariant decode(const QByteArray& text);

QByteArray encodeFloat(float value);
QByteArray encodeArray(const QStringList& value);
QByteArray encodeData(const QByteArray& value);

// These return null if the text cannot be read as the type.
/// Reals are truncated, booleans are 1 and 0; null if the value does not fit 64 bits.
std::optional<std::int64_t> toInteger(const QByteArray& text);
/// Finite only.
std::optional<float> toFloat(const QByteArray& text);
std::optional<bool> toBool(const QByteArray& text);
std::optional<QStringList> toArray(const QByteArray& text);
std::optional<QByteArray> toData(const QByteArray& text);

} // namespace lumbrix::platform::inivalue
