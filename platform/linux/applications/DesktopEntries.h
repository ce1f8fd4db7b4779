// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The user's desktop entries, found by a window's properties.
#pragma once

#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QUrl>

#include <functional>
#include <map>
#include <mutex>
#include <vector>

#include "platform/linux/applications/DesktopEntry.h"

namespace lumbrix::platform
{

/// Any thread. Changed folders are read again, at most every two seconds; only new or changed files
/// are read. Look-ups ignore case and return null if nothing matches.
class DesktopEntries
{
public:
    using Clock = std::function<double()>; ///< seconds, monotonic

    /// The applications folders of XDG_DATA_HOME and XDG_DATA_DIRS, most important first.
    static QStringList defaultFolders();

    DesktopEntries(QStringList folders, QStringList locales, Clock clock);

    DesktopEntryPtr byId(const QString& id);
    /// Also for an entry outside the folders, which no other look-up finds.
    DesktopEntryPtr byPath(const QString& path);
    DesktopEntryPtr byStartupWmClass(const QString& name);
    /// By id, or by the last part of an id such as org.example.Editor.
    DesktopEntryPtr byApplicationId(const QString& name);
    /// By the base name of the program; terminal programs are never found this way.
    DesktopEntryPtr byExecutable(const QString& baseName);
    DesktopEntryPtr byName(const QString& name);

    /// Checks the folders now for what was installed since the last check.
    void lookAgain();

private:
    struct CachedFile {
        std::int64_t modified = 0; ///< milliseconds
        std::int64_t size = 0;
        bool isHidden = false;
        DesktopEntryPtr entry; ///< null if it does not describe an application
    };
    using Index = QHash<QString, DesktopEntryPtr>;

    // All with m_mutex held.
    void refresh();
    bool foldersChanged() const;
    void scan();
    const CachedFile& readFile(std::map<QString, CachedFile>& cache, const QFileInfo& file,
                               const QString& id) const;
    void rebuildIndices();
    DesktopEntryPtr find(const Index& index, const QString& key);

    const QStringList m_folders;
    const QStringList m_locales;
    const Clock m_clock;

    std::mutex m_mutex;
    std::optional<double> m_lastLook;
    std::map<QString, std::int64_t> m_folderTimes; ///< 0 = missing, −1 = unknown
    std::map<QString, CachedFile> m_files;
    std::map<QString, CachedFile> m_strays; ///< outside the folders
    std::vector<DesktopEntryPtr> m_entries; ///< most important first
    Index m_byId;
    Index m_byPath;
    Index m_byStartupWmClass;
    Index m_byLastWord;
    Index m_byExecutable;
    Index m_byName;
};

} // namespace lumbrix::platform
