// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// An INI text that can be changed in place: everything that is not changed stays the same, byte for
// byte, including comments, order, unknown keys and invalid lines.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

namespace lumbrix::platform
{

/// Names are decoded; values are the text after the equals sign, trimmed, still encoded (see
/// IniValue.h). Lines before the first section header belong to the section "General".
class IniFile
{
public:
    using Entry = std::pair<QString, QByteArray>;

    static QString generalSection();

    IniFile() = default;
    /// Lines that start beyond `parsedSize` are kept but not parsed.
    explicit IniFile(const QByteArray& bytes,
                     qsizetype parsedSize = std::numeric_limits<qsizetype>::max());
    QByteArray toBytes() const;

    bool hasSection(const QString& section) const;
    /// If several entries have the same name, the last one counts.
    std::optional<QByteArray> value(const QString& section, const QString& key) const;
    std::vector<Entry> entries(const QString& section) const;

    /// Adds the section if it is missing: "General" as the first one, others at the end.
    void setValue(const QString& section, const QString& key, const QByteArray& value);
    void removeValue(const QString& section, const QString& key);
    /// Removes the entries of the section that are not among these.
    void keepValues(const QString& section, const std::function<bool(const QString& key)>& isKept);
    void ensureSection(const QString& section);
    /// Removes its header and entries; comments stay.
    void removeSection(const QString& section);

private:
    enum class Kind { Section, Entry, Other };
    struct Line {
        Kind kind = Kind::Other;
        QByteArray raw; ///< including its line end
        QString section{};
        QString key{};
        QByteArray value{};
    };

    static Line parseLine(const QByteArray& raw, const QString& section);
    bool isEntry(const Line& line, const QString& section, const QString& key) const;
    std::size_t insertionPoint(const QString& section) const;

    QString lastSection() const;

    std::vector<Line> m_lines;
    QByteArray m_tail;     ///< the text after the parsed lines ...
    QString m_tailSection; ///< ... and the section that it continues
};

} // namespace lumbrix::platform
