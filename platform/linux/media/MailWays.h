// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How each mail program is told to fetch mail.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "platform/linux/x11/SentKey.h"

namespace lumbrix::platform
{

/// One of the two, as the program's manual gives it.
struct MailWay {
    QStringList command;    ///< has the one that runs fetch the mail of all accounts
    x11::Shortcut shortcut; ///< does the same in its main window; where it has no such command
};

/// None for a program that is not known. By the id of its desktop entry, or by its program; case is
/// ignored.
const MailWay* mailWay(const QString& id);

} // namespace lumbrix::platform
