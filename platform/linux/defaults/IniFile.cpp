// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/defaults/IniFile.h"

#include <algorithm>

#include "platform/StringLiterals.h"
#include "platform/linux/defaults/IniValue.h"

namespace lumbrix::platform
{

namespace
{

// The index of the equals sign that is not part of the key; −1 if there is none.
qsizetype separator(const QByteArray& text)
{
    for (qsizetype i = 0; i < text.size(); ++i)
        if (text[i] == '\\')
            ++i;
        else if (text[i] == '=')
            return i;
    return -1;
}

// The name stays as written: it may contain bytes that are not valid text.
qsizetype startOfValue(const QByteArray& raw)
{
    qsizetype start = separator(raw) + 1;
    while (start < raw.size() && (raw[start] == ' ' || raw[start] == '\t'))
        ++start;
    return start;
}

QByteArray entryText(const QString& key, const QByteArray& value, const QByteArray& lineEnd)
{
    return inivalue::encodeName(key) + '=' + value + lineEnd;
}

QByteArray lineEndOf(const QByteArray& raw)
{
    return raw.endsWith("\r\n") ? QByteArrayLiteral("\r\n") : QByteArrayLiteral("\n");
}

} // namespace

QString IniFile::generalSection() { return u"General"_s; }

IniFile::IniFile(const QByteArray& bytes, qsizetype parsedSize)
{
    QString section = generalSection();
    qsizetype start = 0;
    while (start < std::min(bytes.size(), parsedSize)) {
        const qsizetype end = bytes.indexOf('\n', start);
        const qsizetype next = end < 0 ? bytes.size() : end + 1;
        Line line = parseLine(bytes.mid(start, next - start), section);
        section = line.section;
        m_lines.push_back(std::move(line));
        start = next;
    }
    m_tail = bytes.mid(start);
    m_tailSection = section;
}

QString IniFile::lastSection() const
{
    return m_lines.empty() ? generalSection() : m_lines.back().section;
}

IniFile::Line IniFile::parseLine(const QByteArray& raw, const QString& section)
{
    Line line{.raw = raw, .section = section};
    QByteArray text = raw;
    if (text.startsWith("\xEF\xBB\xBF"))
        text.remove(0, 3);
    text = text.trimmed();
    if (text.isEmpty() || text.startsWith('#') || text.startsWith(';'))
        return line;
    if (text.startsWith('[')) {
        if (text.endsWith(']') && text.size() > 2) {
            line.kind = Kind::Section;
            line.section = inivalue::decodeName(text.mid(1, text.size() - 2));
        }
        return line;
    }
    const qsizetype equals = separator(text);
    if (equals > 0) {
        line.kind = Kind::Entry;
        line.key = inivalue::decodeName(text.left(equals).trimmed());
        line.value = text.mid(equals + 1).trimmed();
    }
    return line;
}

QByteArray IniFile::toBytes() const
{
    QByteArray bytes;
    for (const Line& line : m_lines)
        bytes += line.raw;
    if (!m_tail.isEmpty() && lastSection() != m_tailSection)
        bytes += '[' + inivalue::encodeName(m_tailSection) + "]\n";
    return bytes + m_tail;
}

bool IniFile::hasSection(const QString& section) const
{
    return std::ranges::any_of(m_lines, [&](const Line& line) {
        return line.kind == Kind::Section && line.section == section;
    });
}

bool IniFile::isEntry(const Line& line, const QString& section, const QString& key) const
{
    return line.kind == Kind::Entry && line.section == section && line.key == key;
}

std::optional<QByteArray> IniFile::value(const QString& section, const QString& key) const
{
    for (auto line = m_lines.rbegin(); line != m_lines.rend(); ++line)
        if (isEntry(*line, section, key))
            return line->value;
    return std::nullopt;
}

std::vector<IniFile::Entry> IniFile::entries(const QString& section) const
{
    std::vector<Entry> result;
    for (const Line& line : m_lines)
        if (line.kind == Kind::Entry && line.section == section)
            result.emplace_back(line.key, line.value);
    return result;
}

// After the last line of the section that is not blank. But if the section may continue beyond the
// parsed lines, right after its header, as an entry at the end would not be found again.
std::size_t IniFile::insertionPoint(const QString& section) const
{
    std::size_t point = 0;
    if (!m_tail.isEmpty()) {
        const auto start = std::ranges::find_if(m_lines, [&](const Line& line) {
            return line.kind == Kind::Section && line.section == section;
        });
        return start == m_lines.end() ? 0 : static_cast<std::size_t>(start - m_lines.begin()) + 1;
    }
    bool found = false;
    for (std::size_t i = 0; i < m_lines.size(); ++i) {
        const Line& line = m_lines[i];
        if (line.section != section)
            continue;
        const bool counts = line.kind == Kind::Section ? !found : !line.raw.trimmed().isEmpty();
        if (counts) {
            point = i + 1;
            found = true;
        }
    }
    return point;
}

void IniFile::setValue(const QString& section, const QString& key, const QByteArray& value)
{
    for (auto line = m_lines.rbegin(); line != m_lines.rend(); ++line) {
        if (isEntry(*line, section, key)) {
            if (line->value != value) {
                line->value = value;
                line->raw = line->raw.left(startOfValue(line->raw)) + value + lineEndOf(line->raw);
            }
            return;
        }
    }
    ensureSection(section);
    const std::size_t point = insertionPoint(section);
    QByteArray lineEnd = QByteArrayLiteral("\n");
    if (point > 0) {
        Line& before = m_lines[point - 1];
        lineEnd = lineEndOf(before.raw);
        if (!before.raw.endsWith('\n'))
            before.raw += '\n';
    }
    m_lines.insert(m_lines.begin() + static_cast<std::ptrdiff_t>(point),
                   Line{.kind = Kind::Entry,
                        .raw = entryText(key, value, lineEnd),
                        .section = section,
                        .key = key,
                        .value = value});
}

void IniFile::removeValue(const QString& section, const QString& key)
{
    std::erase_if(m_lines, [&](const Line& line) { return isEntry(line, section, key); });
}

void IniFile::keepValues(const QString& section,
                         const std::function<bool(const QString& key)>& isKept)
{
    std::erase_if(m_lines, [&](const Line& line) {
        return line.kind == Kind::Entry && line.section == section && !isKept(line.key);
    });
}

void IniFile::ensureSection(const QString& section)
{
    const bool isGeneral = section == generalSection();
    if (hasSection(section) || (isGeneral && !entries(section).empty()))
        return;
    const auto header = [](const QString& name) {
        return Line{.kind = Kind::Section,
                    .raw = '[' + inivalue::encodeName(name) + "]\n",
                    .section = name};
    };
    if (!m_tail.isEmpty()) {
        const bool startsGeneral = !m_lines.empty() && m_lines.front().kind != Kind::Section;
        if (startsGeneral && !isGeneral)
            m_lines.insert(m_lines.begin(), header(generalSection()));
        m_lines.insert(m_lines.begin(), header(section));
        return;
    }
    if (isGeneral) {
        // After the comments at the start of the file, before the first other section.
        const auto first = std::ranges::find_if(
            m_lines, [](const Line& line) { return line.kind == Kind::Section; });
        if (first != m_lines.begin() && !(first - 1)->raw.endsWith('\n'))
            (first - 1)->raw += '\n';
        const bool more = first != m_lines.end();
        const auto placed = m_lines.insert(first, header(section));
        if (more)
            m_lines.insert(placed + 1, Line{.raw = "\n", .section = section});
        return;
    }
    if (!m_lines.empty()) {
        Line& last = m_lines.back();
        if (!last.raw.endsWith('\n'))
            last.raw += '\n';
        if (!last.raw.trimmed().isEmpty())
            m_lines.push_back(Line{.raw = "\n", .section = last.section});
    }
    m_lines.push_back(header(section));
}

void IniFile::removeSection(const QString& section)
{
    QString present = generalSection();
    std::erase_if(m_lines, [&](const Line& line) {
        return line.section == section && line.kind != Kind::Other;
    });
    for (Line& line : m_lines) {
        if (line.kind == Kind::Section)
            present = line.section;
        line.section = present;
    }
}

} // namespace lumbrix::platform
