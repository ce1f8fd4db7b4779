// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What Evolution Data Server keeps of each calendar: a key file, on disk and on the bus alike.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QColor>

#include <optional>

namespace lumbrix::platform
{

struct EvolutionSource {
    QString uid;
    QString name;
    QColor color; ///< invalid when none is set
    QString file; ///< iCalendar text of a calendar on this computer; empty for others

    /// Null when it is no calendar, is switched off or makes no sense. `dataFolder` is where
    /// Evolution keeps what is on this computer.
    static std::optional<EvolutionSource> parse(const QString& uid, const QByteArray& keyFile,
                                                const QString& dataFolder);
};

} // namespace lumbrix::platform
