// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The calendars that are iCalendar files.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

#include "platform/CalendarStore.h"
#include "platform/linux/calendar/IcalCalendar.h"

namespace lumbrix::platform
{

/// Where such files are searched.
struct IcalFolderPaths {
    /// Each file in it is a calendar, and so is each folder of files.
    QString own;
    QString orage; ///< one file
    QString evolutionData;
    QStringList evolutionSources;

    static IcalFolderPaths defaults();
};

/// A calendar with its occurrences.
struct ReadCalendar {
    Calendar calendar;
    std::vector<ical::Occurrence> occurrences;
};

/// Any thread, but one at a time.
class IcalFolder
{
public:
    explicit IcalFolder(IcalFolderPaths paths);

    struct Question {
        ical::Window window;
        QTimeZone local;
        bool withEvolution = true; ///< false if Evolution's calendars are read over D-Bus
        ical::Stop stop;
    };
    struct Answer {
        std::vector<ReadCalendar> calendars; ///< in a stable order
        bool isComplete = true;              ///< false when it was stopped
    };

    /// Reads a file if it or the requested interval has changed. Files that are not calendars,
    /// cannot be read or are too large are left out.
    Answer read(const Question& question);

private:
    struct Source {
        QString uid;
        QString title; ///< shown if the file contains no name
        bool isTitleKnown = false;
        QColor color;
        QStringList files;
        bool mayBeEmpty = false; ///< is a calendar even without a file
    };
    struct CachedFile {
        qint64 modified = 0; ///< milliseconds
        qint64 size = 0;
        bool isInUse = false;
        ical::Contents contents;
    };

    std::vector<Source> ownSources() const;
    void addOwnFolder(std::vector<Source>& sources, const QString& path) const;
    std::vector<Source> evolutionSources() const;
    void addSystemCalendar(std::vector<Source>& sources) const;
    const ical::Contents* contentsOf(const QString& path, const Question& question);

    const IcalFolderPaths m_paths;
    ical::Window m_window;
    QByteArray m_zone;
    QHash<QString, CachedFile> m_files;
};

} // namespace lumbrix::platform
