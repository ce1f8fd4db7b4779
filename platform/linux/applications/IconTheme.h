// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where the picture behind an icon's name is.
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

    /// `theme` is asked first, then those it builds on, then what every application may count on,
    /// then the folders themselves.
    IconTheme(QStringList folders, const QString& theme);

    /// The file that suits a square of so many pixels best; empty when there is none. A name with a
    /// slash is the path of a file, and comes back if there is such a file.
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
