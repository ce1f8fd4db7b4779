// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/IconThemeIndex.h"

#include <QtCore/QHash>
#include <QtCore/QSet>

namespace lumbrix::platform
{

namespace
{

// Every icon is looked for in each of them, with three suffixes and in each of the user's folders.
constexpr std::size_t maximumDirectories = 1000;
constexpr qsizetype maximumParents = 32;

using Group = QHash<QByteArray, QByteArray>;

/// The groups of a theme's description, without comments.
QHash<QByteArray, Group> groupsOf(const QByteArray& text)
{
    QHash<QByteArray, Group> groups;
    QByteArray name;
    for (const QByteArray& raw : text.split('\n')) {
        const QByteArray line = raw.trimmed();
        if (line.startsWith('[') && line.endsWith(']'))
            name = line.mid(1, line.size() - 2);
        else if (const auto equals = line.indexOf('='); equals > 0 && !line.startsWith('#'))
            groups[name].insert(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
    }
    return groups;
}

int number(const Group& group, const char* key, int otherwise)
{
    bool isNumber = false;
    const int value = group.value(key).toInt(&isNumber);
    return isNumber && value > 0 && value < 10000 ? value : otherwise;
}

} // namespace

int IconThemeIndex::Directory::distanceTo(int pixels) const
{
    if (pixels < smallest)
        return smallest - pixels;
    // Enlarging looks worse than reducing.
    return pixels > largest ? 4 * (pixels - largest) : 0;
}

IconThemeIndex IconThemeIndex::parse(const QByteArray& text)
{
    IconThemeIndex result;
    const auto groups = groupsOf(text);
    const Group main = groups.value("Icon Theme");
    for (const QByteArray& raw : main.value("Inherits").split(',')) {
        const QString parent = QString::fromUtf8(raw.trimmed());
        if (!parent.isEmpty() && !result.parents.contains(parent))
            result.parents.append(parent);
        if (result.parents.size() == maximumParents)
            break;
    }
    QSet<QByteArray> known;
    for (const QByteArray& raw : main.value("Directories").split(',')) {
        const QByteArray directory = raw.trimmed();
        const auto group = groups.constFind(directory);
        if (group == groups.constEnd() || directory.contains("..") || known.contains(directory))
            continue;
        known.insert(directory);
        const int scale = number(*group, "Scale", 1);
        const int size = number(*group, "Size", 48);
        const bool isScalable = group->value("Type") == "Scalable";
        result.directories.push_back(
            {QString::fromUtf8(directory),
             scale * (isScalable ? number(*group, "MinSize", size) : size),
             scale * (isScalable ? number(*group, "MaxSize", size) : size)});
        if (result.directories.size() == maximumDirectories)
            break;
    }
    return result;
}

} // namespace lumbrix::platform
