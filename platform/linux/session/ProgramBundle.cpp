// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/session/ProgramBundle.h"
#include "platform/StringLiterals.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

namespace lumbrix::platform
{
namespace
{

/// Beside the program in a build tree, in the folder for helpers if installed. Null if it is in
/// neither.
QString relaunchTool()
{
    const QDir folder(QCoreApplication::applicationDirPath());
    for (const char* place : {".", LUMBRIX_HELPERS}) {
        const QFileInfo tool(folder.filePath(QString::fromUtf8(place) + u"/lumbrix-relaunch"_s));
        if (tool.isExecutable())
            return tool.canonicalFilePath();
    }
    return {};
}

} // namespace

QString ProgramBundle::path() const { return QCoreApplication::applicationFilePath(); }

QString ProgramBundle::shortVersionString() const { return QCoreApplication::applicationVersion(); }

bool ProgramBundle::isInstalled() const
{
    return !QFileInfo::exists(QCoreApplication::applicationDirPath() + u"/CMakeCache.txt"_s);
}

bool ProgramBundle::relaunch()
{
    const QString tool = relaunchTool();
    return !tool.isEmpty() &&
           QProcess::startDetached(tool,
                                   {path(), QString::number(QCoreApplication::applicationPid())});
}

} // namespace lumbrix::platform
