// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/IconTheme.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>

#include <array>
#include <limits>

#include "platform/StringLiterals.h"
#include "platform/linux/BaseFolders.h"
#include "platform/linux/PlainFile.h"

namespace lumbrix::platform
{

namespace
{

constexpr qint64 maximalIndexSize = qint64{1024} * 1024;
constexpr std::array suffixes{"png", "svg", "xpm"};

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

/// A file that reading cannot hang on, as it could on a pipe or a device.
bool isPlainFile(const QString& path) { return QFileInfo(path).isFile(); }

QString firstFile(const QString& pathWithoutSuffix)
{
    for (const char* suffix : suffixes) {
        QString path = pathWithoutSuffix + u'.' + QLatin1String(suffix);
        if (isPlainFile(path))
            return path;
    }
    return {};
}

} // namespace

QStringList IconTheme::defaultFolders()
{
    const QStringList bases = dataFolders();
    QStringList folders{QDir::homePath() + u"/.icons"_s};
    for (const QString& base : bases)
        folders.append(base + u"/icons"_s);
    for (const QString& base : bases.mid(1))
        folders.append(base + u"/pixmaps"_s);
    return folders;
}

IconTheme::IconTheme(QStringList folders, const QString& theme)
    : m_folders(std::move(folders)), m_first(theme)
{
}

int IconTheme::Directory::distanceTo(int pixels) const
{
    if (pixels < smallest)
        return smallest - pixels;
    // Enlarging looks worse than reducing.
    return pixels > largest ? 4 * (pixels - largest) : 0;
}

QString IconTheme::find(const QString& name, int pixels)
{
    if (name.contains(u'/'))
        return isPlainFile(name) ? name : QString();
    // Some entries name their icon with the suffix of one of its files.
    QString stem = name;
    for (const char* suffix : suffixes) {
        const QString end = u'.' + QLatin1String(suffix);
        if (stem.endsWith(end)) {
            stem.chop(end.size());
            break;
        }
    }
    if (stem.isEmpty())
        return {};
    const std::lock_guard lock(m_mutex);
    for (const QString& each : searchOrder()) {
        QString path = findIn(each, theme(each), stem, pixels);
        if (!path.isEmpty())
            return path;
    }
    return findLoose(stem);
}

QStringList IconTheme::searchOrder()
{
    QStringList order{m_first};
    // Themes may build on each other in circles.
    for (qsizetype i = 0; i < order.size() && i < 32; ++i) {
        for (const QString& parent : theme(order.at(i)).parents)
            if (!order.contains(parent))
                order.append(parent);
    }
    for (const QString& common : {u"hicolor"_s, u"Adwaita"_s})
        if (!order.contains(common))
            order.append(common);
    return order;
}

const IconTheme::Theme& IconTheme::theme(const QString& name)
{
    const auto known = m_themes.find(name);
    return known != m_themes.end() ? known->second
                                   : m_themes.emplace(name, readTheme(name)).first->second;
}

IconTheme::Theme IconTheme::readTheme(const QString& name) const
{
    Theme result;
    if (name.isEmpty() || name.contains(u'/'))
        return result;
    for (const QString& folder : m_folders) {
        const QString path = folder + u'/' + name + u"/index.theme"_s;
        const QByteArray text = readPlainFile(path, maximalIndexSize);
        if (text.isEmpty())
            continue;
        const auto groups = groupsOf(text);
        const Group main = groups.value("Icon Theme");
        for (const QByteArray& parent : main.value("Inherits").split(','))
            result.parents.append(QString::fromUtf8(parent.trimmed()));
        result.parents.removeAll(QString());
        for (const QByteArray& raw : main.value("Directories").split(',')) {
            const QByteArray directory = raw.trimmed();
            const auto group = groups.constFind(directory);
            if (group == groups.constEnd() || directory.contains(".."))
                continue;
            const int scale = number(*group, "Scale", 1);
            const int size = number(*group, "Size", 48);
            const bool isScalable = group->value("Type") == "Scalable";
            result.directories.push_back(
                {QString::fromUtf8(directory),
                 scale * (isScalable ? number(*group, "MinSize", size) : size),
                 scale * (isScalable ? number(*group, "MaxSize", size) : size)});
        }
        break; // a theme has one description, however many folders its icons are spread over
    }
    return result;
}

QString IconTheme::findIn(const QString& themeName, const Theme& theme, const QString& name,
                          int pixels) const
{
    QString best;
    int bestDistance = std::numeric_limits<int>::max();
    for (const Directory& directory : theme.directories) {
        const int distance = directory.distanceTo(pixels);
        if (distance >= bestDistance)
            continue;
        for (const QString& folder : m_folders) {
            const QString path =
                firstFile(folder + u'/' + themeName + u'/' + directory.path + u'/' + name);
            if (!path.isEmpty()) {
                best = path;
                bestDistance = distance;
                break;
            }
        }
    }
    return best;
}

QString IconTheme::findLoose(const QString& name) const
{
    for (const QString& folder : m_folders) {
        QString path = firstFile(folder + u'/' + name);
        if (!path.isEmpty())
            return path;
    }
    return {};
}

} // namespace lumbrix::platform
