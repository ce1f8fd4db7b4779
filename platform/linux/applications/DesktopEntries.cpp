// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/DesktopEntries.h"

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QSet>

#include <algorithm>
#include <tuple>

#include "platform/StringLiterals.h"
#include "platform/linux/BaseFolders.h"
#include "platform/linux/PlainFile.h"

namespace lumbrix::platform
{

namespace
{

constexpr double lookInterval = 2.0;
constexpr std::int64_t clockTick = 100; // milliseconds, generously
constexpr qint64 maximumFileSize = qint64{1024} * 1024;

constexpr std::size_t maximumStrays = 1000;

std::int64_t folderTime(const QString& folder)
{
    const QFileInfo info(folder);
    return info.isDir() ? info.lastModified().toMSecsSinceEpoch() : 0;
}

QString lastWord(const QString& id) { return id.section(u'.', -1); }

// Among several entries that start the same program, prefers the main one: shown in menus, named
// like the program, started without options. For example, "mousepad" is org.xfce.mousepad, not its
// settings.
auto executableRank(const DesktopEntry& entry)
{
    const QString program = entry.executable().toLower();
    const bool namedLikeIt =
        entry.id.toLower() == program || lastWord(entry.id).toLower() == program;
    return std::tuple(entry.noDisplay, !namedLikeIt, execArguments(entry.exec).size());
}

} // namespace

QStringList DesktopEntries::defaultFolders()
{
    QStringList folders = dataFolders();
    for (QString& folder : folders)
        folder += u"/applications"_s;
    return folders;
}

DesktopEntries::DesktopEntries(QStringList folders, QStringList locales, Clock clock)
    : m_folders(std::move(folders)), m_locales(std::move(locales)), m_clock(std::move(clock))
{
}

bool DesktopEntries::foldersChanged() const
{
    return std::ranges::any_of(m_folderTimes, [](const auto& folder) {
        return folderTime(folder.first) != folder.second;
    });
}

void DesktopEntries::refresh()
{
    const double now = m_clock();
    if (m_lastLook && now - *m_lastLook < lookInterval)
        return;
    const bool isFirst = !m_lastLook.has_value();
    m_lastLook = now;
    if (isFirst || foldersChanged())
        scan();
}

void DesktopEntries::lookAgain()
{
    const std::lock_guard lock(m_mutex);
    m_lastLook = m_clock();
    if (foldersChanged())
        scan();
}

void DesktopEntries::scan()
{
    m_folderTimes.clear();
    const std::int64_t started = QDateTime::currentMSecsSinceEpoch();
    const auto noteTime = [&](const QString& folder) {
        // A second change within one tick of the file system's clock would not be visible, so a
        // folder that was changed just now counts as changed the next time, too.
        const std::int64_t time = folderTime(folder);
        m_folderTimes[folder] = started - time < clockTick ? -1 : time;
    };
    m_entries.clear();
    std::map<QString, CachedFile> known;
    known.swap(m_files);
    QSet<QString> ids;
    for (const QString& folder : m_folders) {
        noteTime(folder);
        QDirIterator it(folder, QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString path = it.next();
            const QFileInfo info = it.fileInfo();
            if (info.isDir()) {
                noteTime(path);
                continue;
            }
            if (!path.endsWith(u".desktop"_s))
                continue;
            QString id = path.mid(folder.size() + 1).chopped(8);
            id.replace(u'/', u'-');
            if (const auto old = known.find(path); old != known.end())
                m_files.insert(known.extract(old));
            const CachedFile& file = readFile(m_files, info, id);
            if (ids.contains(id))
                continue; // masked by a more important folder
            if (file.entry || file.isHidden)
                ids.insert(id);
            if (file.entry)
                m_entries.push_back(file.entry);
        }
    }
    rebuildIndices();
}

const DesktopEntries::CachedFile& DesktopEntries::readFile(std::map<QString, CachedFile>& cache,
                                                           const QFileInfo& info,
                                                           const QString& id) const
{
    const QString path = info.filePath();
    const std::int64_t modified = info.lastModified().toMSecsSinceEpoch();
    CachedFile& cached = cache[path];
    if (cached.modified == modified && cached.size == info.size())
        return cached;
    cached = {.modified = modified, .size = info.size(), .isHidden = false, .entry = nullptr};
    if (const QByteArray text = readPlainFile(path, maximumFileSize); !text.isEmpty()) {
        auto entry = parseDesktopEntry(text, id, path, m_locales, cached.isHidden);
        if (entry)
            cached.entry = std::make_shared<const DesktopEntry>(std::move(*entry));
    }
    return cached;
}

void DesktopEntries::rebuildIndices()
{
    for (Index* index :
         {&m_byId, &m_byPath, &m_byStartupWmClass, &m_byLastWord, &m_byExecutable, &m_byName})
        index->clear();
    // Entries that menus do not show come last, so the first match is the best.
    std::stable_partition(m_entries.begin(), m_entries.end(),
                          [](const DesktopEntryPtr& entry) { return !entry->noDisplay; });
    const auto insertFirst = [](Index& index, const QString& key, const DesktopEntryPtr& entry) {
        if (!key.isEmpty() && !index.contains(key.toLower()))
            index.insert(key.toLower(), entry);
    };
    for (const DesktopEntryPtr& entry : m_entries) {
        insertFirst(m_byId, entry->id, entry);
        m_byPath.insert(entry->path, entry);
        insertFirst(m_byStartupWmClass, entry->startupWmClass, entry);
        insertFirst(m_byLastWord, lastWord(entry->id), entry);
        insertFirst(m_byName, entry->name, entry);
        const QString program = entry->executable().toLower();
        if (program.isEmpty() || entry->terminal)
            continue; // a terminal program's window belongs to the terminal
        const DesktopEntryPtr other = m_byExecutable.value(program);
        if (!other || executableRank(*entry) < executableRank(*other))
            m_byExecutable.insert(program, entry);
    }
}

DesktopEntryPtr DesktopEntries::find(const Index& index, const QString& key)
{
    if (key.isEmpty())
        return nullptr;
    const std::lock_guard lock(m_mutex);
    refresh();
    return index.value(key.toLower());
}

DesktopEntryPtr DesktopEntries::byId(const QString& id) { return find(m_byId, id); }

DesktopEntryPtr DesktopEntries::byPath(const QString& path)
{
    const std::lock_guard lock(m_mutex);
    refresh();
    if (DesktopEntryPtr entry = m_byPath.value(path))
        return entry;
    const QFileInfo file(path);
    if (!path.endsWith(u".desktop"_s) || !file.isFile())
        return nullptr;
    if (m_strays.size() > maximumStrays)
        m_strays.clear();
    return readFile(m_strays, file, file.completeBaseName()).entry;
}

DesktopEntryPtr DesktopEntries::byStartupWmClass(const QString& name)
{
    return find(m_byStartupWmClass, name);
}

DesktopEntryPtr DesktopEntries::byApplicationId(const QString& name)
{
    if (DesktopEntryPtr entry = find(m_byId, name))
        return entry;
    return find(m_byLastWord, name);
}

DesktopEntryPtr DesktopEntries::byExecutable(const QString& baseName)
{
    return find(m_byExecutable, baseName);
}

DesktopEntryPtr DesktopEntries::byName(const QString& name) { return find(m_byName, name); }

} // namespace lumbrix::platform
