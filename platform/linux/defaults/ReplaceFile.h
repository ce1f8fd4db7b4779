// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

namespace lumbrix::platform
{

/// Replaces the file, or the file that it links to, with the bytes; creates its folder if it is
/// missing. Returns null on success; otherwise the reason, and the file is unchanged.
QString replaceFile(const QString& path, const QByteArray& bytes);

} // namespace lumbrix::platform
