// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace lumbrix::platform
{

/// Puts the bytes in the place of the file, or what it links to, making its folder when it is
/// missing. Null when that is done; otherwise why it could not be, and the file is as it was.
QString replaceFile(const QString& path, const QByteArray& bytes);

} // namespace lumbrix::platform
