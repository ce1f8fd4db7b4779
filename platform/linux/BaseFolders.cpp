// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/BaseFolders.h"
#include "platform/StringLiterals.h"

#include <QtCore/QDir>

namespace lumbrix::platform
{
namespace
{

QString home(const char* variable, const QString& usual)
{
    const QString folder = qEnvironmentVariable(variable);
    return QDir::cleanPath(QDir::isAbsolutePath(folder) ? folder : QDir::homePath() + u'/' + usual);
}

} // namespace

QString configHome() { return home("XDG_CONFIG_HOME", u".config"_s); }

QStringList dataFolders()
{
    QString system = qEnvironmentVariable("XDG_DATA_DIRS");
    if (system.isEmpty())
        system = u"/usr/local/share:/usr/share"_s;
    QStringList folders{home("XDG_DATA_HOME", u".local/share"_s)};
    for (const QString& folder : system.split(u':', Qt::SkipEmptyParts))
        if (QDir::isAbsolutePath(folder))
            folders.append(QDir::cleanPath(folder));
    folders.removeDuplicates();
    return folders;
}

} // namespace lumbrix::platform
