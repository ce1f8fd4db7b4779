// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// X servers without a screen of their own, on display numbers that are free.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QRect>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <memory>

#include "Process.h"

namespace lumbrix::privatedesk
{

/// One that the user has switched on.
struct Monitor {
    QString name; ///< "DUMMY0" to "DUMMY15"
    QRect area;   ///< on the desktop, pixels; of an ordinary size, 1600x900 for example
};

struct Server {
    std::unique_ptr<Process> process; ///< ends with its owner
    QByteArray display;               ///< as in DISPLAY; empty when it did not start
};

/// One with a single monitor that stays as it is. Its output goes to the file `log`. It does
/// without the extension, if one is named that can be switched off.
Server startServer(QSize size, const QStringList& environment, const QString& log,
                   const QString& withoutExtension = {});
/// One with monitors to be switched on and off: it begins with DUMMY0 alone. Writes into the
/// folder. Touches neither the machine's console nor its mouse and keyboard.
Server startMonitorServer(const QString& folder, const QStringList& environment,
                          const QString& log);
/// Whether such a one can be had on this machine, which takes Xorg and its dummy driver.
bool hasMonitorServer();

} // namespace lumbrix::privatedesk
