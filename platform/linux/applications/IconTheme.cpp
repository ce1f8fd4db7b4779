// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/IconTheme.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

#include <array>
#include <limits>

#include "platform/StringLiterals.h"
#include "platform/linux/BaseFolders.h"
#include "platform/linux/PlainFile.h"

namespace lumbrix::platform
{

namespace
{

constexpr qint64 maximumIndexSize = qint64{1024} * 1024;
constexpr qsizetype maximumThemes = 32;
constexpr std::array suffixes{"png", "svg", "xpm"};

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

QString IconTheme::find(const QString& name, int pixels)
{
    if (name.contains(u'/'))
        return isPlainFile(name) ? name : QString();
    // Some entries include the file suffix in the icon name.
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
    for (qsizetype i = 0; i < order.size(); ++i) {
        for (const QString& parent : theme(order.at(i)).parents)
            if (order.size() < maximumThemes && !order.contains(parent))
                order.append(parent);
    }
    for (const QString& common : {u"hicolor"_s, u"Adwaita"_s})
        if (!order.contains(common))
            order.append(common);
    return order;
}

const IconThemeIndex& IconTheme::theme(const QString& name)
{
    const auto known = m_themes.find(name);
    return known != m_themes.end() ? known->second
                                   : m_themes.emplace(name, readTheme(name)).first->second;
}

IconThemeIndex IconTheme::readTheme(const QString& name) const
{
    if (name.isEmpty() || name.contains(u'/'))
        return {};
    for (const QString& folder : m_folders) {
        const QString path = folder + u'/' + name + u"/index.theme"_s;
        const QByteArray text = readPlainFile(path, maximumIndexSize);
        // A theme has one description, however many folders its icons are spread over.
        if (!text.isEmpty())
            return IconThemeIndex::parse(text);
    }
    return {};
}

QString IconTheme::findIn(const QString& themeName, const IconThemeIndex& theme,
                          const QString& name, int pixels) const
{
    QString best;
    int bestDistance = std::numeric_limits<int>::max();
    for (const IconThemeIndex::Directory& directory : theme.directories) {
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
