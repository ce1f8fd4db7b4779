// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A media player on the message bus, and how one of several is selected.
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
    QString shortName;    ///< its bus name without the common prefix: "vlc.instance42"
    QString desktopEntry; ///< as it reports; may be empty
    QString identity;     ///< its display name; may be empty
    std::int64_t pid = 0; ///< 0 = not known
    ApplicationRole role = ApplicationRole::Other; ///< from the table; otherwise Other
    bool answers = false;                          ///< the last query, in time
    MprisProperties properties;
    QImage artwork; ///< of a music player's track; null if there is none
};

/// The application whose player is looked for.
struct MediaPlayerWanted {
    /// Any player of the role, preferably one that is playing; the other fields are ignored.
    bool any = false;
    ApplicationRole role = ApplicationRole::Other; ///< with `any`
    std::optional<std::int64_t> windowPid{};       ///< of the process whose window is looked at
    std::vector<std::int64_t> otherPids{};         ///< of the application's other windows
    QString bundleIdentifier{};
    QString name{}; ///< what users call it
};

/// The player of the window's process. Otherwise a player of the application that is not owned by
/// another process with windows of it, as a player may run in a sandbox or a helper process: by its
/// desktop entry, then by its names. Null if there is none. Players that do not answer are selected
/// like others.
const MediaPlayer* chooseMediaPlayer(const std::vector<MediaPlayer>& players,
                                     const MediaPlayerWanted& wanted);

/// The role of a player by its bus name; some names end with an instance number, and some are an
/// application's whole id.
ApplicationRole roleOfMediaPlayer(const QString& shortName);

/// The role in which a player is controlled, for an application with this role. If neither is in
/// the table, it is controlled like VLC: with buttons only, and the window's own title and picture.
ApplicationRole roleFor(const MediaPlayer& player, ApplicationRole application);

} // namespace lumbrix::platform
