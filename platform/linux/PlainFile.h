// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Reading files that any program may have put there. Any thread.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>
#include <QtCore/QString>

namespace lumbrix::platform
{

/// Opens a regular file of at most `mostBytes` bytes for reading; follows links. False for anything
/// else: a pipe or a device could block, and may have no end.
bool openPlainFile(QFile& file, const QString& path, qint64 mostBytes);

/// The contents of such a file; empty if there is none.
QByteArray readPlainFile(const QString& path, qint64 mostBytes);

} // namespace lumbrix::platform
