// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A media player on the message bus, and which of several is meant.
#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/Workspace.h"
#include "platform/linux/media/MprisProperties.h"

namespace lumbrix::platform
{

/// A snapshot.
struct MediaPlayer {
    QString owner;        ///< its connection's unique name
    QString shortName;    ///< its bus name without what all have in common: "vlc.instance42"
    QString desktopEntry; ///< as it says itself; empty where it does not
    QString identity;     ///< what it calls itself; empty where it does not
    std::int64_t pid = 0; ///< 0 = not known
    ApplicationRole role = ApplicationRole::Other; ///< by the table; Other for the many besides
    bool answers = false;                          ///< to the last question, in time
    MprisProperties properties;
    QImage artwork; ///< of a music player's track; null without one
};

/// The application whose player is looked for.
struct MediaPlayerWanted {
    /// Whichever of the role plays, else whichever there is; the rest does not count then.
    bool any = false;
    ApplicationRole role = ApplicationRole::Other; ///< with `any`
    std::optional<std::int64_t> windowPid{};       ///< of the process whose window is looked at
    std::vector<std::int64_t> otherPids{};         ///< of the application's other windows
    QString bundleIdentifier{};
    QString name{}; ///< what users call it
};

/// The player of the process whose window it is; else one of the application that no other of its
/// windows' processes owns, which happens where a player runs in a sandbox or by a helper: by its
/// desktop entry, else by its names. Null when there is none. Those that do not answer are chosen
/// like any other.
const MediaPlayer* chooseMediaPlayer(const std::vector<MediaPlayer>& players,
                                     const MediaPlayerWanted& wanted);

/// The role of a player by its bus name; some end in a number of the instance, and some are the
/// whole of an application's id.
ApplicationRole roleOfMediaPlayer(const QString& shortName);

/// As what a player is driven that belongs to an application with this role. What neither is in the
/// table is driven as VLC is: by buttons alone, with the window's own title and picture.
ApplicationRole roleFor(const MediaPlayer& player, ApplicationRole application);

} // namespace lumbrix::platform
