// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/media/MprisProperties.h"
#include "platform/StringLiterals.h"

#include <QtCore/QStringList>
#include <QtDBus/QDBusArgument>

namespace lumbrix::platform
{

namespace
{

constexpr qsizetype longestText = 1000;
/// Long enough for a picture of some megabytes in a data URI.
constexpr qsizetype longestUrl = qsizetype{12} * 1024 * 1024;

QString textOf(const QVariant& value)
{
    return value.typeId() == QMetaType::QString ? value.toString().left(longestText) : QString();
}

// A list of names in MPRIS; some players send a single string.
QString namesOf(const QVariant& value)
{
    if (value.typeId() != QMetaType::QStringList)
        return textOf(value);
    QString result;
    for (const QString& name : value.toStringList()) {
        if (name.isEmpty())
            continue;
        result += (result.isEmpty() ? QString() : u", "_s) + name.left(longestText);
        if (result.size() > longestText)
            break;
    }
    return result.left(longestText);
}

Playback playbackOf(const QVariant& value)
{
    const QString text = textOf(value);
    return text == u"Playing"   ? Playback::Playing
           : text == u"Paused"  ? Playback::Paused
           : text == u"Stopped" ? Playback::Stopped
                                : Playback::Unknown;
}

QVariantMap mapOf(const QVariant& value)
{
    if (value.userType() != qMetaTypeId<QDBusArgument>())
        return value.typeId() == QMetaType::QVariantMap ? value.toMap() : QVariantMap();
    const auto packed = value.value<QDBusArgument>();
    return packed.currentSignature() == u"a{sv}" ? qdbus_cast<QVariantMap>(packed) : QVariantMap();
}

} // namespace

void applyMprisProperties(const QVariantMap& properties, MprisProperties& known)
{
    if (const auto it = properties.find(u"PlaybackStatus"_s); it != properties.end())
        known.playback = playbackOf(*it);
    if (const auto it = properties.find(u"Metadata"_s); it != properties.end()) {
        const QVariantMap track = mapOf(*it);
        known.artist = namesOf(track.value(u"xesam:artist"_s));
        known.name = textOf(track.value(u"xesam:title"_s));
        const QVariant url = track.value(u"mpris:artUrl"_s);
        known.artUrl = url.typeId() == QMetaType::QString ? url.toString() : QString();
        if (known.artUrl.size() > longestUrl)
            known.artUrl.clear();
    }
}

} // namespace lumbrix::platform
