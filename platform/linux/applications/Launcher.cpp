// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/Launcher.h"
#include "platform/StringLiterals.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>

namespace lumbrix::platform
{

namespace
{

bool start(const QString& program, const QStringList& arguments, const QString& folder)
{
    const QString path =
        QDir::isAbsolutePath(program) ? program : QStandardPaths::findExecutable(program);
    if (path.isEmpty() || !QFileInfo(path).isFile() || !QFileInfo(path).isExecutable())
        return false;
    QProcess process;
    process.setProgram(path);
    process.setArguments(arguments);
    process.setWorkingDirectory(QFileInfo(folder).isDir() ? folder : QDir::homePath());
    // Its output is discarded: it should not appear as ours, and the program must not fail on a
    // closed pipe if we end first.
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    return process.startDetached();
}

} // namespace

bool launchEntry(const DesktopEntry& entry)
{
    QStringList words = execArguments(entry.exec);
    if (words.isEmpty())
        return false;
    if (entry.terminal)
        words = QStringList{u"x-terminal-emulator"_s, u"-e"_s} + words;
    const QString program = words.takeFirst();
    return start(program, words, entry.workingDirectory);
}

bool launchExecutable(const QString& program) { return start(program, {}, {}); }

bool launchCommand(const QStringList& words)
{
    return !words.isEmpty() && start(words.first(), words.mid(1), {});
}

bool launchUrl(DesktopEntries& entries, const QUrl& url)
{
    const QString path = url.toLocalFile();
    if (!path.endsWith(u".desktop"_s))
        return launchExecutable(path);
    const DesktopEntryPtr entry = entries.byPath(path);
    return entry && launchEntry(*entry);
}

bool launchByName(DesktopEntries& entries, const QString& name)
{
    for (const DesktopEntryPtr& entry :
         {entries.byName(name), entries.byId(name), entries.byExecutable(name)})
        if (entry)
            return launchEntry(*entry);
    return launchExecutable(name);
}

} // namespace lumbrix::platform
