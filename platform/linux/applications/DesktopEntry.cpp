// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/DesktopEntry.h"

#include <QtCore/QFileInfo>
#include <QtCore/QHash>

namespace lumbrix::platform
{

namespace
{

// Escapes of string values.
QString unescaped(const QByteArray& value)
{
    const QString text = QString::fromUtf8(value);
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] != u'\\' || i + 1 == text.size()) {
            result += text[i];
            continue;
        }
        const QChar c = text[++i];
        if (c == u's')
            result += u' ';
        else if (c == u'n')
            result += u'\n';
        else if (c == u't')
            result += u'\t';
        else if (c == u'r')
            result += u'\r';
        else
            result += c;
    }
    return result;
}

QHash<QByteArray, QByteArray> keysOfMainGroup(const QByteArray& text)
{
    QHash<QByteArray, QByteArray> keys;
    bool inGroup = false;
    for (const QByteArray& raw : text.split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.startsWith('[')) {
            if (inGroup)
                break; // actions after this group have names and commands of their own
            inGroup = line == "[Desktop Entry]";
        } else if (inGroup && !line.isEmpty() && !line.startsWith('#')) {
            const qsizetype equals = line.indexOf('=');
            if (equals > 0)
                keys.insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
        }
    }
    return keys;
}

} // namespace

QStringList localeSpellings(const QString& locale)
{
    const QString modifier = locale.contains(u'@') ? locale.section(u'@', 1) : QString();
    const QString base = locale.section(u'@', 0, 0).section(u'.', 0, 0);
    const QString language = base.section(u'_', 0, 0);
    if (language.isEmpty() || language == u"C" || language == u"POSIX")
        return {};
    QStringList result;
    if (!modifier.isEmpty())
        result << base + u'@' + modifier;
    result << base;
    if (!modifier.isEmpty())
        result << language + u'@' + modifier;
    result << language;
    result.removeDuplicates();
    return result;
}

QStringList localeSpellings()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const QString value = qEnvironmentVariable(variable);
        if (!value.isEmpty())
            return localeSpellings(value);
    }
    return {};
}

std::optional<DesktopEntry> parseDesktopEntry(const QByteArray& text, const QString& id,
                                              const QString& path, const QStringList& locales,
                                              bool& isHidden)
{
    const auto keys = keysOfMainGroup(text);
    isHidden = keys.value("Hidden") == "true";
    if (isHidden || keys.value("Type", "Application") != "Application")
        return std::nullopt;
    DesktopEntry entry;
    entry.id = id;
    entry.path = path;
    for (const QString& locale : locales) {
        entry.name = unescaped(keys.value("Name[" + locale.toUtf8() + ']')).trimmed();
        if (!entry.name.isEmpty())
            break;
    }
    if (entry.name.isEmpty())
        entry.name = unescaped(keys.value("Name")).trimmed();
    if (entry.name.isEmpty())
        entry.name = id;
    entry.icon = unescaped(keys.value("Icon")).trimmed();
    entry.exec = unescaped(keys.value("Exec"));
    entry.workingDirectory = unescaped(keys.value("Path"));
    entry.startupWmClass = unescaped(keys.value("StartupWMClass"));
    entry.terminal = keys.value("Terminal") == "true";
    entry.noDisplay = keys.value("NoDisplay") == "true";
    return entry;
}

QStringList execArguments(const QString& exec)
{
    QStringList words;
    QString word;
    bool inWord = false;
    bool inQuotes = false;
    const auto finish = [&] {
        if (inWord)
            words.append(word);
        word.clear();
        inWord = false;
    };
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar c = exec[i];
        if (c == u'"') {
            inQuotes = !inQuotes;
            inWord = true;
        } else if (c == u'\\' && i + 1 < exec.size()) {
            word += exec[++i];
            inWord = true;
        } else if (c.isSpace() && !inQuotes) {
            finish();
        } else if (c == u'%' && i + 1 < exec.size()) {
            // %% is a percent sign; the others stand for files or icons, which we do not pass.
            if (exec[++i] == u'%') {
                word += u'%';
                inWord = true;
            }
        } else {
            word += c;
            inWord = true;
        }
    }
    finish();
    return words;
}

QString DesktopEntry::executable() const
{
    for (const QString& word : execArguments(exec)) {
        QString base = QFileInfo(word).fileName();
        if (base != u"env" && !word.contains(u'='))
            return base;
    }
    return {};
}

} // namespace lumbrix::platform
