// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How each mail program is told to fetch mail.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace lumbrix::platform
{

/// The command that has the mail program that runs fetch the mail of all accounts, as its manual
/// gives it; empty for a program that has none. By the id of its desktop entry, or by its program;
/// case is ignored.
QStringList fetchMailCommand(const QString& id);

} // namespace lumbrix::platform
