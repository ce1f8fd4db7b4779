// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/IcalFolder.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>

#include <algorithm>
#include <utility>

#include "platform/StringLiterals.h"
#include "platform/linux/PlainFile.h"
#include "platform/linux/calendar/CalendarColor.h"
#include "platform/linux/calendar/EvolutionSource.h"

namespace lumbrix::platform
{
namespace
{

constexpr qint64 maxFileSize = qint64{32} * 1024 * 1024;
constexpr qint64 maxNoteSize = qint64{64} * 1024;
constexpr qsizetype maxCalendars = 200;
constexpr qsizetype maxFilesInFolder = 20'000;

/// The first line of a small file; empty if there is none.
QString noteIn(const QString& path)
{
    const QByteArray text = readPlainFile(path, maxNoteSize);
    return QString::fromUtf8(text.split('\n').constFirst()).trimmed();
}

QStringList icalFiles(const QDir& folder)
{
    const QStringList names =
        folder.entryList({u"*.ics"_s}, QDir::Files | QDir::Readable, QDir::Name)
            .mid(0, maxFilesInFolder);
    QStringList paths;
    for (const QString& name : names)
        paths << folder.filePath(name);
    return paths;
}

} // namespace

IcalFolderPaths IcalFolderPaths::defaults()
{
    const auto in = [](QStandardPaths::StandardLocation location, const QString& path) {
        return QStandardPaths::writableLocation(location) + path;
    };
    return {in(QStandardPaths::GenericDataLocation, u"/lumbrix/calendars"_s),
            in(QStandardPaths::GenericDataLocation, u"/orage/orage.ics"_s),
            in(QStandardPaths::GenericDataLocation, u"/evolution"_s),
            {in(QStandardPaths::GenericConfigLocation, u"/evolution/sources"_s),
             in(QStandardPaths::GenericCacheLocation, u"/evolution/sources"_s)}};
}

IcalFolder::IcalFolder(IcalFolderPaths paths) : m_paths(std::move(paths)) {}

std::vector<IcalFolder::Source> IcalFolder::ownSources() const
{
    std::vector<Source> sources;
    const QFileInfoList entries =
        QDir(m_paths.own)
            .entryInfoList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot | QDir::Readable,
                           QDir::Name);
    for (const QFileInfo& entry : entries.mid(0, maxCalendars)) {
        if (entry.isDir())
            addOwnFolder(sources, entry.filePath());
        else if (entry.suffix().compare(u"ics"_s, Qt::CaseInsensitive) == 0)
            sources.push_back({QUrl::fromLocalFile(entry.filePath()).toString(),
                               entry.completeBaseName(),
                               false,
                               {},
                               {entry.filePath()}});
    }
    if (QFileInfo(m_paths.orage).isFile())
        sources.push_back({u"orage"_s, u"Orage"_s, false, {}, {m_paths.orage}});
    return sources;
}

/// A folder with one file per event, as written by programs that synchronise calendars; two small
/// files in it contain the calendar's name and colour.
void IcalFolder::addOwnFolder(std::vector<Source>& sources, const QString& path) const
{
    const QDir folder(path);
    const QString name = noteIn(folder.filePath(u"displayname"_s));
    const QStringList files = icalFiles(folder);
    if (files.isEmpty() && name.isEmpty())
        return;
    sources.push_back({QUrl::fromLocalFile(path).toString(),
                       name.isEmpty() ? folder.dirName() : name, true,
                       colorFromText(noteIn(folder.filePath(u"color"_s))), files, true});
}

std::vector<IcalFolder::Source> IcalFolder::evolutionSources() const
{
    std::vector<Source> sources;
    for (const QString& path : m_paths.evolutionSources) {
        const QDir folder(path);
        const QFileInfoList entries =
            folder.entryInfoList({u"*.source"_s}, QDir::Files | QDir::Readable, QDir::Name);
        for (const QFileInfo& entry : entries.mid(0, maxCalendars)) {
            const auto source = EvolutionSource::parse(entry.completeBaseName(),
                                                       readPlainFile(entry.filePath(), maxNoteSize),
                                                       m_paths.evolutionData);
            // Remote calendars are listed too, although only the server can read their events.
            if (source)
                sources.push_back(
                    {source->uid, source->name, true, source->color,
                     source->file.isEmpty() ? QStringList() : QStringList(source->file), true});
        }
    }
    addSystemCalendar(sources);
    return sources;
}

/// The default calendar has a description on disk only after it was changed.
void IcalFolder::addSystemCalendar(std::vector<Source>& sources) const
{
    const QString uid = u"system-calendar"_s;
    const QString file = m_paths.evolutionData + u"/calendar/system/calendar.ics"_s;
    const bool isTold = std::any_of(sources.begin(), sources.end(),
                                    [&uid](const Source& source) { return source.uid == uid; });
    if (!isTold && QFileInfo(file).isFile())
        sources.push_back(
            {uid, QCoreApplication::translate("Calendars", "Personal"), true, {}, {file}});
}

const ical::Contents* IcalFolder::contentsOf(const QString& path, const Question& question)
{
    const QFileInfo info(path);
    const qint64 modified = info.lastModified().toMSecsSinceEpoch();
    auto known = m_files.find(path);
    if (known == m_files.end() || known->modified != modified || known->size != info.size()) {
        QFile file;
        if (!openPlainFile(file, path, maxFileSize))
            return nullptr;
        known = m_files.insert(
            path, {modified, info.size(), true,
                   ical::readCalendar(file, question.window, question.local, question.stop)});
    }
    known->isInUse = true;
    return &known->contents;
}

IcalFolder::Answer IcalFolder::read(const Question& question)
{
    if (question.window.start != m_window.start || question.window.end != m_window.end ||
        question.local.id() != m_zone)
        m_files.clear();
    m_window = question.window;
    m_zone = question.local.id();

    std::vector<Source> sources = ownSources();
    if (question.withEvolution) {
        const std::vector<Source> more = evolutionSources();
        sources.insert(sources.end(), more.begin(), more.end());
    }
    Answer answer;
    for (const Source& source : sources) {
        ReadCalendar read{{source.uid, source.title, source.color}, {}};
        bool isCalendar = source.mayBeEmpty;
        for (const QString& path : source.files) {
            const ical::Contents* contents = contentsOf(path, question);
            if (!contents)
                continue;
            isCalendar = isCalendar || contents->heading.isCalendar;
            answer.isComplete = answer.isComplete && contents->isComplete;
            if (!source.isTitleKnown && !contents->heading.name.isEmpty())
                read.calendar.title = contents->heading.name;
            if (!read.calendar.color.isValid())
                read.calendar.color = contents->heading.color;
            read.occurrences.insert(read.occurrences.end(), contents->occurrences.begin(),
                                    contents->occurrences.end());
        }
        if (!read.calendar.color.isValid())
            read.calendar.color = colorForUID(source.uid);
        if (isCalendar)
            answer.calendars.push_back(std::move(read));
    }
    m_files.removeIf([](auto file) {
        // A file that was not read completely is read again.
        return !std::exchange(file->isInUse, false) || !file->contents.isComplete;
    });
    return answer;
}

} // namespace lumbrix::platform
