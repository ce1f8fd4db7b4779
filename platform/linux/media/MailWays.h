// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How to make each mail program fetch mail.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include "platform/linux/x11/SentKey.h"

namespace lumbrix::platform
{

/// One of the two, from the program's manual.
struct MailWay {
    QStringList command;    ///< makes the running one fetch mail for all accounts
    x11::Shortcut shortcut; ///< the same in its main window, if it has no command
    QString mainInstance; ///< WM_CLASS's first part of its main windows; empty = of all its windows
};

/// Looked up by the id of the desktop entry, or by the program; case is ignored. None for an
/// unknown program.
const MailWay* mailWay(const QString& id);

} // namespace lumbrix::platform
