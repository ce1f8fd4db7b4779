// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which of several players is meant.
#include <gtest/gtest.h>

#include "platform/StringLiterals.h"
#include "platform/linux/media/MediaPlayer.h"

namespace lumbrix::test
{

using namespace platform;

namespace
{

MediaPlayer player(const char* owner, const char* shortName, std::int64_t pid,
                   ApplicationRole role = ApplicationRole::MusicPlayer)
{
    MediaPlayer result;
    result.owner = QString::fromLatin1(owner);
    result.shortName = QString::fromLatin1(shortName);
    result.pid = pid;
    result.role = role;
    result.answers = true;
    return result;
}

QString chosen(const std::vector<MediaPlayer>& players, const MediaPlayerWanted& wanted)
{
    const MediaPlayer* found = chooseMediaPlayer(players, wanted);
    return found ? found->owner : QString();
}

} // namespace

TEST(MediaPlayer, isTheOneWhoseWindowItIs)
{
    std::vector<MediaPlayer> players{player("quod", "quodlibet", 10),
                                     player("aud1", "audacious", 20),
                                     player("aud2", "audacious.instance21", 21),
                                     player("film", "mpv", 31, ApplicationRole::MoviePlayer),
                                     player("sandboxed", "org.gnome.Lollypop", 99)};
    const auto of = [&](std::int64_t pid, std::vector<std::int64_t> others, const char* id) {
        return chosen(players, {.windowPid = pid,
                                .otherPids = std::move(others),
                                .bundleIdentifier = QString::fromLatin1(id),
                                .name = u"Web Radio"_s});
    };
    EXPECT_EQ(of(20, {21}, "audacious"), u"aud1");
    EXPECT_EQ(of(21, {20}, "audacious"), u"aud2");
    EXPECT_EQ(of(22, {20, 21}, "audacious"), QString()) << "this window's process is no player";
    EXPECT_EQ(of(30, {}, "audacious"), u"aud1") << "by name, where the process is hidden";
    EXPECT_EQ(of(5, {}, "org.gnome.Lollypop"), u"sandboxed");
    EXPECT_EQ(of(5, {}, "org.example.Other"), QString());
    players.front().identity = u"web radio"_s;
    EXPECT_EQ(of(5, {}, "org.example.Other"), u"quod");
    EXPECT_EQ(of(5, {10}, "org.example.Other"), QString()) << "another window's";
    players.back().desktopEntry = u"org.example.Other"_s;
    EXPECT_EQ(of(5, {}, "org.example.Other"), u"sandboxed") << "says so itself";
}

TEST(MediaPlayer, withoutAWindow_isTheOneThatPlays)
{
    std::vector<MediaPlayer> players{player("a", "audacious", 1), player("b", "quodlibet", 2)};
    const MediaPlayerWanted any{.any = true, .role = ApplicationRole::MusicPlayer};
    EXPECT_EQ(chosen(players, any), u"a");
    players[1].properties.playback = Playback::Playing;
    EXPECT_EQ(chosen(players, any), u"b");
    players[1].answers = false;
    EXPECT_EQ(chosen(players, any), u"a");
    EXPECT_EQ(chosen({}, any), QString());
}

TEST(MediaPlayer, role_isKnownByItsBusName)
{
    EXPECT_EQ(roleOfMediaPlayer(u"vlc.instance7123"_s), ApplicationRole::VLC);
    EXPECT_EQ(roleOfMediaPlayer(u"rhythmbox"_s), ApplicationRole::MusicPlayer);
    EXPECT_EQ(roleOfMediaPlayer(u"io.github.celluloid_player.Celluloid"_s),
              ApplicationRole::MoviePlayer);
    EXPECT_EQ(roleOfMediaPlayer(u"Lollypop"_s), ApplicationRole::MusicPlayer);
    EXPECT_EQ(roleOfMediaPlayer(u"chromium.instance12"_s), ApplicationRole::Other);
}

TEST(MediaPlayer, isDrivenAsItsApplication_elseAsItself_elseByButtonsAlone)
{
    using enum ApplicationRole;
    for (const auto& [own, application, driven] : {std::tuple{Other, MusicPlayer, MusicPlayer},
                                                   {MusicPlayer, MoviePlayer, MoviePlayer},
                                                   {MusicPlayer, Other, MusicPlayer},
                                                   {Other, Other, VLC},
                                                   {Mail, Calendar, VLC}})
        EXPECT_EQ(roleFor(player("a", "a", 1, own), application), driven);
}

} // namespace lumbrix::test
