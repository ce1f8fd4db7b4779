// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where the picture behind an icon's name is.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <map>
#include <mutex>
#include <vector>

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
    struct Directory {
        QString path; ///< below a theme's folder
        int smallest = 0;
        int largest = 0;

        int distanceTo(int pixels) const;
    };
    struct Theme {
        std::vector<Directory> directories;
        QStringList parents;
    };

    // With m_mutex held.
    const Theme& theme(const QString& name);
    QStringList searchOrder();

    Theme readTheme(const QString& name) const;
    QString findIn(const QString& themeName, const Theme& theme, const QString& name,
                   int pixels) const;
    QString findLoose(const QString& name) const;

    const QStringList m_folders;
    const QString m_first;
    std::mutex m_mutex;
    std::map<QString, Theme> m_themes;
};

} // namespace lumbrix::platform
