// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/media/MediaPlayer.h"

#include <algorithm>

#include "platform/linux/applications/ApplicationRoles.h"

namespace lumbrix::platform
{

namespace
{

bool isSame(const QString& a, const QString& b)
{
    return !a.isEmpty() && a.compare(b, Qt::CaseInsensitive) == 0;
}

bool isNamedLike(const MediaPlayer& player, const MediaPlayerWanted& wanted)
{
    const QString word = wanted.bundleIdentifier.section(u'.', -1);
    for (const QString& name : {player.shortName, player.shortName.section(u'.', 0, 0),
                                player.shortName.section(u'.', -1)})
        if (isSame(name, wanted.bundleIdentifier) || isSame(name, word))
            return true;
    return isSame(player.identity, wanted.name);
}

bool isPlayerRole(ApplicationRole role)
{
    return role == ApplicationRole::MusicPlayer || role == ApplicationRole::MoviePlayer ||
           role == ApplicationRole::VLC;
}

} // namespace

const MediaPlayer* chooseMediaPlayer(const std::vector<MediaPlayer>& players,
                                     const MediaPlayerWanted& wanted)
{
    const auto first = [&](const auto& fits) -> const MediaPlayer* {
        const auto it = std::ranges::find_if(players, fits);
        return it == players.end() ? nullptr : &*it;
    };
    if (wanted.any) {
        const auto isOfRole = [&](const MediaPlayer& player) { return player.role == wanted.role; };
        const auto* playing = first([&](const MediaPlayer& player) {
            return isOfRole(player) && player.answers &&
                   player.properties.playback == Playback::Playing;
        });
        return playing ? playing : first(isOfRole);
    }
    if (const auto* own = first([&](const MediaPlayer& player) {
            return player.pid != 0 && player.pid == wanted.windowPid;
        }))
        return own;
    const auto isFree = [&](const MediaPlayer& player) {
        return std::ranges::find(wanted.otherPids, player.pid) == wanted.otherPids.end();
    };
    if (const auto* entry = first([&](const MediaPlayer& player) {
            return isFree(player) && isSame(player.desktopEntry, wanted.bundleIdentifier);
        }))
        return entry;
    return first(
        [&](const MediaPlayer& player) { return isFree(player) && isNamedLike(player, wanted); });
}

ApplicationRole roleOfMediaPlayer(const QString& shortName)
{
    for (const QString& name :
         {shortName, shortName.section(u'.', 0, 0), shortName.section(u'.', -1)})
        if (const auto role = roleOfShortName(name); role != ApplicationRole::Other)
            return role;
    return ApplicationRole::Other;
}

ApplicationRole roleFor(const MediaPlayer& player, ApplicationRole application)
{
    return isPlayerRole(application)   ? application
           : isPlayerRole(player.role) ? player.role
                                       : ApplicationRole::VLC;
}

} // namespace lumbrix::platform
