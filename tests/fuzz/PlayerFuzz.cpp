// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What media players say of themselves and of what they play.

#include "platform/StringLiterals.h"
#include "platform/linux/media/MediaPlayer.h"
#include "tests/fuzz/FuzzInput.h"

using namespace lumbrix;
using namespace platform;
using test::FuzzInput;
using test::require;

namespace
{

QString key(FuzzInput& input)
{
    static const QStringList known{u"PlaybackStatus"_s, u"Metadata"_s,     u"xesam:artist"_s,
                                   u"xesam:title"_s,    u"mpris:artUrl"_s, u"Volume"_s};
    return known.at(input.below(6));
}

QVariantMap map(FuzzInput& input, int depth);

QVariant value(FuzzInput& input, int depth)
{
    switch (input.below(7)) {
    case 0:
        return input.text();
    case 1:
        return QStringList{input.text(), input.text()};
    case 2:
        return input.number<qint64>();
    case 3:
        return input.bytes();
    case 4: {
        const int count = input.below(256);
        return QStringList(count, input.text());
    }
    case 5:
        return depth < 3 ? map(input, depth + 1) : QVariantMap();
    default:
        return input.text().repeated(input.below(256));
    }
}

QVariantMap map(FuzzInput& input, int depth)
{
    QVariantMap result;
    for (int i = input.below(8); i > 0; --i) {
        const QString name = key(input);
        result.insert(name, value(input, depth));
    }
    return result;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    std::vector<MediaPlayer> players(3);
    for (MediaPlayer& player : players) {
        applyMprisProperties(map(input, 0), player.properties);
        applyMprisProperties(map(input, 0), player.properties);
        require(player.properties.artist.size() <= 1000, "artists can be shown");
        require(player.properties.name.size() <= 1000, "a name can be shown");
        player.shortName = input.text();
        player.desktopEntry = input.text();
        player.identity = input.text();
        player.pid = input.below(4);
        player.role = roleOfMediaPlayer(player.shortName);
    }
    const MediaPlayer* chosen = chooseMediaPlayer(
        players, {.windowPid = 9, .otherPids = {1}, .bundleIdentifier = input.text()});
    require(!chosen || chosen->pid != 1, "another process's player is not this one's");
    return 0;
}
