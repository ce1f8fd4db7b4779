// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/defaults/ReplaceFile.h"
#include "platform/StringLiterals.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <sys/stat.h>

namespace lumbrix::platform
{

namespace
{

/// On a full disk the first write may succeed partly; only writing the rest reports the error.
bool writeAll(QSaveFile& file, const QByteArray& bytes)
{
    qint64 done = 0;
    while (done < bytes.size()) {
        const qint64 count = file.write(bytes.constData() + done, bytes.size() - done);
        if (count <= 0)
            return false;
        done += count;
    }
    return true;
}

/// Those that are missing are the user's alone. False when there is something else, or no leave.
bool makeFolder(const QString& path)
{
    const QFileInfo folder(path);
    if (folder.isDir())
        return true;
    if (folder.path() == path || !makeFolder(folder.path()))
        return false;
    return ::mkdir(QFile::encodeName(path).constData(), S_IRWXU) == 0 || QFileInfo(path).isDir();
}

} // namespace

QString replaceFile(const QString& path, const QByteArray& bytes)
{
    const QString folder = QFileInfo(path).path();
    if (!makeFolder(folder))
        return u"the folder %1 cannot be made"_s.arg(folder);
    const bool isNew = !QFileInfo::exists(path);
    QSaveFile file(path);
    // Unbuffered: otherwise the file would be replaced even if the rest of a buffer could not be
    // written.
    const bool isDone = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) &&
                        (!isNew || file.setPermissions(QFile::ReadOwner | QFile::WriteOwner)) &&
                        writeAll(file, bytes) && file.commit();
    return isDone ? QString() : file.errorString();
}

} // namespace lumbrix::platform
