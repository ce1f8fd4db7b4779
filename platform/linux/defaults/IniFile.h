// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// An INI text that can be changed in place: everything that is not changed stays as it was, byte
// for byte, comments, order, unknown keys and lines that make no sense included.
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
/// IniValue.h). The section "General" is also what stands before any section header.
class IniFile
{
public:
    using Entry = std::pair<QString, QByteArray>;

    static QString generalSection();

    IniFile() = default;
    /// Lines that begin beyond `parsedSize` are kept but not looked at.
    explicit IniFile(const QByteArray& bytes,
                     qsizetype parsedSize = std::numeric_limits<qsizetype>::max());
    QByteArray toBytes() const;

    bool hasSection(const QString& section) const;
    /// Of several entries with one name the last counts.
    std::optional<QByteArray> value(const QString& section, const QString& key) const;
    std::vector<Entry> entries(const QString& section) const;

    /// Makes the section when it is missing: "General" as the first one, others last.
    void setValue(const QString& section, const QString& key, const QByteArray& value);
    void removeValue(const QString& section, const QString& key);
    /// Removes the entries of the section that are not among these.
    void keepValues(const QString& section, const std::function<bool(const QString& key)>& isKept);
    void ensureSection(const QString& section);
    /// Takes away its header and its entries; comments stay.
    void removeSection(const QString& section);

private:
    enum class Kind { Section, Entry, Other };
    struct Line {
        Kind kind = Kind::Other;
        QByteArray raw; ///< with its line end
        QString section{};
        QString key{};
        QByteArray value{};
    };

    static Line parseLine(const QByteArray& raw, const QString& section);
    bool isEntry(const Line& line, const QString& section, const QString& key) const;
    std::size_t insertionPoint(const QString& section) const;

    QString lastSection() const;

    std::vector<Line> m_lines;
    QByteArray m_tail;     ///< what follows the lines ...
    QString m_tailSection; ///< ... and the section that it goes on with
};

} // namespace lumbrix::platform
