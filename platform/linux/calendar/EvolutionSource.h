// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The description of a calendar in Evolution Data Server: a key file, both on disk and on the bus.
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
    QString file; ///< iCalendar file of a calendar on this computer; empty for others

    /// Null if it is not a calendar, is switched off or is invalid. `dataFolder` is Evolution's
    /// folder for local calendars.
    static std::optional<EvolutionSource> parse(const QString& uid, const QByteArray& keyFile,
                                                const QString& dataFolder);
};

} // namespace lumbrix::platform
