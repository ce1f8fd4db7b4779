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

/// Where such files are looked for.
struct IcalFolderPaths {
    /// Each file in it is a calendar, and so is each folder of files.
    QString own;
    QString orage; ///< one file
    QString evolutionData;
    QStringList evolutionSources;

    static IcalFolderPaths defaults();
};

/// A calendar with what happens in it.
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
        bool withEvolution = true; ///< false when the calendars of Evolution come another way
        ical::Stop stop;
    };
    struct Answer {
        std::vector<ReadCalendar> calendars; ///< in an order that stays
        bool isComplete = true;              ///< false when it was stopped
    };

    /// A file is read when it has changed or the question has. What is no calendar, cannot be read
    /// or is too large is left out.
    Answer read(const Question& question);

private:
    struct Source {
        QString uid;
        QString title; ///< what is shown when the file gives no name of its own
        bool isTitleKnown = false;
        QColor color;
        QStringList files;
        bool mayBeEmpty = false; ///< a calendar also without any file
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
