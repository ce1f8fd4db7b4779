// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How values and names are written in the settings file, so that a person can read and edit them:
// 243, 0.5, true, text, "text with edges ", a list: one, "two, or three", bytes: @data(\x00abc).
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

/// Integers, reals, truth values, strings and lists of strings; what else there is becomes JSON.
QByteArray encode(const QVariant& value);
QVariant decode(const QByteArray& text);

QByteArray encodeFloat(float value);
QByteArray encodeArray(const QStringList& value);
QByteArray encodeData(const QByteArray& value);

// Null when the text does not read as the type.
/// Reals are cut off, truth values are 1 and 0; null outside 64 bits.
std::optional<std::int64_t> toInteger(const QByteArray& text);
/// Finite only.
std::optional<float> toFloat(const QByteArray& text);
std::optional<bool> toBool(const QByteArray& text);
std::optional<QStringList> toArray(const QByteArray& text);
std::optional<QByteArray> toData(const QByteArray& text);

} // namespace lumbrix::platform::inivalue
