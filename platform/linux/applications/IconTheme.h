// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Finds the file for an icon name.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <map>
#include <mutex>

#include "platform/linux/applications/IconThemeIndex.h"

namespace lumbrix::platform
{

/// Any thread; reads files, so look-ups do not belong on the main thread. A theme's description is
/// read once.
class IconTheme
{
public:
    /// The icon folders of this user, most important first.
    static QStringList defaultFolders();

    /// Searches `theme` first, then the themes it inherits from, then the theme that every
    /// application can rely on, then the folders themselves.
    IconTheme(QStringList folders, const QString& theme);

    /// The best file for a square with sides of `pixels`; empty if there is none. A name with a
    /// slash is a path, which is returned if the file exists.
    QString find(const QString& name, int pixels);

private:
    // With m_mutex held.
    const IconThemeIndex& theme(const QString& name);
    QStringList searchOrder();

    IconThemeIndex readTheme(const QString& name) const;
    QString findIn(const QString& themeName, const IconThemeIndex& theme, const QString& name,
                   int pixels) const;
    QString findLoose(const QString& name) const;

    const QStringList m_folders;
    const QString m_first;
    std::mutex m_mutex;
    std::map<QString, IconThemeIndex> m_themes;
};

} // namespace lumbrix::platform
