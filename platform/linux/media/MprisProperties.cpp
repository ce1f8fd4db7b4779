// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/media/MprisProperties.h"

#include <QtCore/QStringList>
#include <QtDBus/QDBusArgument>

namespace lumbrix::platform
{

namespace
{

constexpr qsizetype LongestText = 1000;
/// A picture of some megabytes inside the address.
constexpr qsizetype LongestUrl = qsizetype{12} * 1024 * 1024;

QString textOf(const QVariant& value)
{
    return value.typeId() == QMetaType::QString ? value.toString().left(LongestText) : QString();
}

// A list of names by the rules; some players send a single one.
QString namesOf(const QVariant& value)
{
    if (value.typeId() != QMetaType::QStringList) {
        return textOf(value);
    }
    QString result;
    for (const QString& name : value.toStringList()) {
        if (name.isEmpty()) {
            continue;
        }
        result += (result.isEmpty() ? QString() : QStringLiteral(", ")) + name.left(LongestText);
        if (result.size() > LongestText) {
            break;
        }
    }
    return result.left(LongestText);
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
    if (value.userType() != qMetaTypeId<QDBusArgument>()) {
        return value.typeId() == QMetaType::QVariantMap ? value.toMap() : QVariantMap();
    }
    const auto packed = value.value<QDBusArgument>();
    return packed.currentSignature() == u"a{sv}" ? qdbus_cast<QVariantMap>(packed) : QVariantMap();
}

} // namespace

void applyMprisProperties(const QVariantMap& properties, MprisProperties& known)
{
    if (const auto it = properties.find(QStringLiteral("PlaybackStatus")); it != properties.end()) {
        known.playback = playbackOf(*it);
    }
    if (const auto it = properties.find(QStringLiteral("Metadata")); it != properties.end()) {
        const QVariantMap track = mapOf(*it);
        known.artist = namesOf(track.value(QStringLiteral("xesam:artist")));
        known.name = textOf(track.value(QStringLiteral("xesam:title")));
        const QVariant url = track.value(QStringLiteral("mpris:artUrl"));
        known.artUrl = url.typeId() == QMetaType::QString ? url.toString() : QString();
        if (known.artUrl.size() > LongestUrl) {
            known.artUrl.clear();
        }
    }
}

} // namespace lumbrix::platform
