// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Files that anybody may have put where we look. Any thread.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>

namespace lumbrix::platform
{

/// Opens a plain file of at most so many bytes for reading, also by way of a link. False for
/// anything else: a pipe or a device would keep us waiting, and may have no end.
bool openPlainFile(QFile& file, const QString& path, qint64 mostBytes);

/// What is in such a file; nothing when there is none.
QByteArray readPlainFile(const QString& path, qint64 mostBytes);

} // namespace lumbrix::platform
