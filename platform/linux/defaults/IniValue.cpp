// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/defaults/IniValue.h"

#include <QtCore/QJsonDocument>
#include <QtCore/QLocale>
#include <QtCore/QStringConverter>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace lumbrix::platform::inivalue
{

namespace
{

bool isPlain(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && byte != 0x7f && c != '\\';
}

// Backslash escapes for control characters, the backslash and the characters of `special`.
QByteArray escape(const QByteArray& text, const char* special, bool onlyAscii = false)
{
    static constexpr char digits[] = "0123456789abcdef";
    QByteArray result;
    result.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\\' || (c != '\0' && std::strchr(special, c) != nullptr)) {
            result += '\\';
            result += c;
        } else if (c == '\n') {
            result += "\\n";
        } else if (c == '\t') {
            result += "\\t";
        } else if (!isPlain(c) || (onlyAscii && byte >= 0x80)) {
            result += "\\x";
            result += digits[byte >> 4];
            result += digits[byte & 15];
        } else {
            result += c;
        }
    }
    return result;
}

QByteArray unescape(const QByteArray& text)
{
    QByteArray result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != '\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const char c = text[++i];
        bool isHex = false;
        const int byte = c == 'x' ? text.mid(i + 1, 2).toInt(&isHex, 16) : 0;
        if (c == 'n') {
            result += '\n';
        } else if (c == 't') {
            result += '\t';
        } else if (c == 's') {
            result += ' ';
        } else if (isHex && i + 2 < text.size()) {
            result += static_cast<char>(byte);
            i += 2;
        } else {
            result += c;
        }
    }
    return result;
}

/// The toolkit otherwise takes a byte order mark off the front, which here is a part of the text.
QString textOf(const QByteArray& utf8)
{
    using Flag = QStringDecoder::Flag;
    QStringDecoder decoder(QStringDecoder::Utf8, Flag::ConvertInitialBom | Flag::Stateless);
    return decoder(utf8);
}

QByteArray quoted(const QByteArray& text) { return '"' + escape(text, "\"") + '"'; }

bool hasWrapper(const QByteArray& text, const char* start)
{
    return text.startsWith(start) && text.endsWith(')');
}

QByteArray unwrapped(const QByteArray& text, const char* start)
{
    const auto length = static_cast<qsizetype>(std::strlen(start));
    return text.mid(length, text.size() - length - 1);
}

bool isQuoted(const QByteArray& text)
{
    return text.size() >= 2 && text.startsWith('"') && text.endsWith('"');
}

std::optional<double> toReal(const QByteArray& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

// Only these two words: "yes" or "on" in a dictionary are texts.
std::optional<bool> toTruthWord(const QByteArray& text)
{
    const QByteArray word = text.toLower();
    if (word == "true")
        return true;
    return word == "false" ? std::optional(false) : std::nullopt;
}

QByteArray encodeString(const QString& value)
{
    const QByteArray text = value.toUtf8();
    const bool readsAsOther = toReal(text) || toTruthWord(text) || text.startsWith('"') ||
                              text.startsWith('@') || text.isEmpty() || text.trimmed() != text;
    return readsAsOther ? quoted(text) : escape(text, "");
}

} // namespace

QByteArray encodeName(const QString& name)
{
    QByteArray text = escape(name.toUtf8(), "=[]#;");
    if (text.startsWith("\xEF\xBB\xBF")) // at the start of a line it would be the file's
        text.replace(0, 3, "\\xef\\xbb\\xbf");
    if (text.startsWith(' '))
        text.replace(0, 1, "\\s");
    if (text.endsWith(' '))
        text.replace(text.size() - 1, 1, "\\s");
    return text;
}

QString decodeName(const QByteArray& text) { return textOf(unescape(text)); }

QByteArray encode(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return value.toBool() ? "true" : "false";
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
        return QByteArray::number(value.toLongLong());
    case QMetaType::Float:
        return encodeFloat(value.toFloat());
    case QMetaType::Double:
        return QByteArray::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    case QMetaType::QString:
        return encodeString(value.toString());
    case QMetaType::QByteArray:
        return encodeData(value.toByteArray());
    case QMetaType::QStringList:
        return "@list(" + encodeArray(value.toStringList()) + ')';
    default:
        return "@json(" +
               QJsonDocument::fromVariant(QVariantList{value}).toJson(QJsonDocument::Compact) + ')';
    }
}

QVariant decode(const QByteArray& text)
{
    bool isInteger = false;
    const qlonglong integer = text.toLongLong(&isInteger);
    if (isInteger)
        return integer;
    if (const auto real = toReal(text))
        return *real;
    if (const auto truth = toTruthWord(text))
        return *truth;
    if (const auto data = toData(text))
        return *data;
    if (hasWrapper(text, "@list("))
        return toArray(unwrapped(text, "@list(")).value_or(QStringList());
    if (hasWrapper(text, "@json(")) {
        const QVariantList list =
            QJsonDocument::fromJson(unwrapped(text, "@json(")).toVariant().toList();
        return list.isEmpty() ? QVariant() : list.first();
    }
    const QByteArray inner = isQuoted(text) ? text.mid(1, text.size() - 2) : text;
    return textOf(unescape(inner));
}

QByteArray encodeFloat(float value)
{
    if (!std::isfinite(value))
        return "0";
    // The fewest digits that read back as the same single-precision number.
    for (int digits = 6; digits < 9; ++digits) {
        QByteArray text = QByteArray::number(static_cast<double>(value), 'g', digits);
        if (text.toFloat() == value)
            return text;
    }
    return QByteArray::number(static_cast<double>(value), 'g', 9);
}

QByteArray encodeArray(const QStringList& value)
{
    QByteArrayList parts;
    for (const QString& element : value) {
        const QByteArray text = element.toUtf8();
        const bool needsQuotes = text.isEmpty() || text.trimmed() != text || text.contains(',') ||
                                 text.contains('"') || text.startsWith('@');
        parts.append(needsQuotes ? quoted(text) : escape(text, ""));
    }
    return parts.join(", ");
}

QByteArray encodeData(const QByteArray& value) { return "@data(" + escape(value, "", true) + ')'; }

std::optional<std::int64_t> toInteger(const QByteArray& text)
{
    bool ok = false;
    const qlonglong integer = text.toLongLong(&ok);
    if (ok)
        return integer;
    if (const auto truth = toTruthWord(text))
        return *truth ? 1 : 0;
    const auto real = toReal(text);
    // Both bounds are exact doubles; the upper one is the first that does not fit.
    if (!real || *real < -9223372036854775808.0 || *real >= 9223372036854775808.0)
        return std::nullopt;
    return static_cast<std::int64_t>(*real);
}

std::optional<float> toFloat(const QByteArray& text)
{
    if (const auto truth = toTruthWord(text))
        return *truth ? 1.0F : 0.0F;
    const auto real = toReal(text);
    if (!real || std::abs(*real) > static_cast<double>(std::numeric_limits<float>::max()))
        return std::nullopt;
    return static_cast<float>(*real);
}

std::optional<bool> toBool(const QByteArray& text)
{
    if (const auto real = toReal(text))
        return *real != 0.0;
    const QByteArray word = text.toLower();
    if (word == "true" || word == "yes" || word == "on")
        return true;
    if (word == "false" || word == "no" || word == "off")
        return false;
    return std::nullopt;
}

std::optional<QStringList> toArray(const QByteArray& text)
{
    if (hasWrapper(text, "@data(") || hasWrapper(text, "@json("))
        return std::nullopt;
    QStringList result;
    qsizetype at = 0;
    while (at < text.size()) {
        while (at < text.size() && text[at] == ' ')
            ++at;
        const bool quotes = at < text.size() && text[at] == '"';
        const qsizetype start = quotes ? at + 1 : at;
        const char stop = quotes ? '"' : ',';
        qsizetype end = start;
        while (end < text.size() && text[end] != stop)
            end += text[end] == '\\' ? 2 : 1;
        if (quotes && end >= text.size())
            return std::nullopt; // an opened quote that never closes
        const QByteArray part = text.mid(start, end - start);
        result.append(textOf(unescape(quotes ? part : part.trimmed())));
        at = quotes ? text.indexOf(',', end) : std::min(end, text.size());
        at = at < 0 ? text.size() : at + 1;
    }
    return result;
}

std::optional<QByteArray> toData(const QByteArray& text)
{
    if (!hasWrapper(text, "@data("))
        return std::nullopt;
    return unescape(unwrapped(text, "@data("));
}

} // namespace lumbrix::platform::inivalue
