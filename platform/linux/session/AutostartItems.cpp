// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/session/AutostartItems.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>
#include <QtCore/QStandardPaths>

#include <cstdio>
#include <utility>

#include "platform/StringLiterals.h"
#include "platform/linux/BaseFolders.h"
#include "platform/linux/PlainFile.h"
#include "platform/linux/applications/DesktopEntry.h"
#include "platform/linux/defaults/IniFile.h"
#include "platform/linux/defaults/ReplaceFile.h"

namespace lumbrix::platform
{
namespace
{

// A larger file is not a desktop entry.
constexpr qint64 maximumSize = qint64{256} * 1024;

const QString& ownName()
{
    static const QString name = u"lumbrix.desktop"_s;
    return name;
}
const QString& section()
{
    static const QString name = u"Desktop Entry"_s;
    return name;
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    static bool hasTold = false; // it is tried each time that a setting changes
    if (QFileInfo(path).isSymLink())
        QFile::remove(path); // what it points to is not the user's item alone
    const QString fault = replaceFile(path, bytes);
    if (!fault.isNull() && !std::exchange(hasTold, true))
        std::fprintf(stderr, "lumbrix: the autostart entry %s cannot be saved: %s\n",
                     qUtf8Printable(path), qUtf8Printable(fault));
}

/// Escapes the text as a value of a desktop entry, which is a single line.
QByteArray stringValue(QString text)
{
    return text.replace(u'\\', uR"(\\)"_s)
        .replace(u'\n', uR"(\n)"_s)
        .replace(u'\r', uR"(\r)"_s)
        .replace(u'\t', uR"(\t)"_s)
        .toUtf8();
}

/// Quotes the path for a command line, and escapes that as a value.
QByteArray execValue(QString path)
{
    static const QRegularExpression reserved(uR"([^A-Za-z0-9_@%+=:,./-])"_s);
    static const QRegularExpression escaped(uR"((["`$\\]))"_s);
    path.replace(u'%', u"%%"_s);
    if (path.contains(reserved))
        path = u'"' + path.replace(escaped, uR"(\\1)"_s) + u'"';
    return stringValue(path);
}

QString resolved(const QString& program)
{
    const QString found =
        QDir::isAbsolutePath(program) ? program : QStandardPaths::findExecutable(program);
    const QString canonical = QFileInfo(found).canonicalFilePath();
    return canonical.isEmpty() ? found : canonical;
}

/// Also through a shell, or by its base name if that is this program.
bool startsProgram(const QString& command, const QString& path)
{
    if (command.contains(path))
        return true;
    const QString name = QFileInfo(path).fileName();
    const QRegularExpression word(
        u"(?<![\\w./-])%1(?![\\w./-])"_s.arg(QRegularExpression::escape(name)));
    return command.contains(word) && resolved(name) == resolved(path);
}

/// Whether the item starts the program at this path, or one below it.
bool startsProgramOf(const QString& file, const QString& path)
{
    bool isHidden = false;
    const auto item =
        parseDesktopEntry(readPlainFile(file, maximumSize), QString(), file, {}, isHidden);
    const QStringList words = item ? execArguments(item->exec) : QStringList();
    if (words.isEmpty() || path.isEmpty())
        return false;
    const QString program = resolved(words.front());
    return program == path || program.startsWith(path + u'/');
}

QByteArray newItem(const QByteArray& exec, const QString& path)
{
    return "[Desktop Entry]\n"
           "Type=Application\n"
           "Name=Lumbrix\n"
           "Comment=Live previews of an application's windows beside its Dock icon\n"
           "Exec=" +
           exec + "\nTryExec=" + stringValue(path) +
           "\nIcon=lumbrix\n"
           "Terminal=false\n"
           "StartupNotify=false\n";
}

} // namespace

QString AutostartItems::defaultFolder() { return configHome() + u"/autostart"_s; }

void AutostartItems::insert(const QString& path)
{
    const QString file = m_folder + u'/' + ownName();
    IniFile item(readPlainFile(file, maximumSize));
    if (!item.hasSection(section())) {
        writeFile(file, newItem(execValue(path), path));
        return;
    }
    const auto command = item.value(section(), u"Exec"_s);
    if (command && startsProgram(QString::fromUtf8(*command), path))
        return;
    item.setValue(section(), u"Exec"_s, execValue(path));
    if (item.value(section(), u"TryExec"_s))
        item.setValue(section(), u"TryExec"_s, stringValue(path));
    writeFile(file, item.toBytes());
}

void AutostartItems::remove(const QString& path)
{
    const QString program = resolved(path);
    const QDir folder(m_folder);
    for (const QString& name : folder.entryList({u"*.desktop"_s}, QDir::Files)) {
        const QString file = folder.filePath(name);
        if (name == ownName() || startsProgramOf(file, program))
            QFile::remove(file);
    }
}

} // namespace lumbrix::platform
