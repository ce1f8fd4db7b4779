// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/PlainFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lumbrix::platform
{

bool openPlainFile(QFile& file, const QString& path, qint64 mostBytes)
{
    // Checked after opening, as the file may be replaced before that.
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    struct stat status = {};
    if (::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) &&
        status.st_size <= mostBytes &&
        file.open(descriptor, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        return true;
    ::close(descriptor);
    return false;
}

QByteArray readPlainFile(const QString& path, qint64 mostBytes)
{
    QFile file;
    if (!openPlainFile(file, path, mostBytes))
        return {};
    return file.read(qMin(file.size(), mostBytes));
}

} // namespace lumbrix::platform
