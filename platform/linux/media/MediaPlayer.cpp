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

bool belongsTo(const MediaPlayer& player, const QString& bundleIdentifier)
{
    if (isSame(player.desktopEntry, bundleIdentifier)) {
        return true;
    }
    const QString word = bundleIdentifier.section(u'.', -1);
    for (const QString& name : {player.shortName, player.shortName.section(u'.', 0, 0),
                                player.shortName.section(u'.', -1)}) {
        if (isSame(name, bundleIdentifier) || isSame(name, word)) {
            return true;
        }
    }
    return false;
}

} // namespace

const MediaPlayer* chooseMediaPlayer(const std::vector<MediaPlayer>& players,
                                     const MediaPlayerWanted& wanted)
{
    const auto first = [&](const auto& fits) -> const MediaPlayer* {
        const auto it = std::ranges::find_if(players, [&](const MediaPlayer& player) {
            return player.role == wanted.role && fits(player);
        });
        return it == players.end() ? nullptr : &*it;
    };
    if (wanted.any) {
        if (const auto* playing = first([](const MediaPlayer& player) {
                return player.answers && player.properties.playback == Playback::Playing;
            })) {
            return playing;
        }
        return first([](const MediaPlayer&) { return true; });
    }
    if (const auto* own = first([&](const MediaPlayer& player) {
            return player.pid != 0 && player.pid == wanted.windowPid;
        })) {
        return own;
    }
    return first([&](const MediaPlayer& player) {
        return std::ranges::find(wanted.otherPids, player.pid) == wanted.otherPids.end() &&
               belongsTo(player, wanted.bundleIdentifier);
    });
}

ApplicationRole roleOfMediaPlayer(const QString& shortName)
{
    for (const QString& name :
         {shortName, shortName.section(u'.', 0, 0), shortName.section(u'.', -1)}) {
        if (const auto role = roleOfShortName(name); role != ApplicationRole::Other) {
            return role;
        }
    }
    return ApplicationRole::Other;
}

} // namespace lumbrix::platform
