// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Media players and mail, driven without bringing them forward.
#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

#include <functional>
#include <memory>
#include <optional>

#include "platform/Workspace.h"
#include "scripting/Applications.h"
#include "scripting/PlayerState.h"

namespace lumbrix
{

namespace platform
{
class RunLoop;
}

/// Any thread. Questions wait for the answer, at most 0.2 s each. Commands that are given on the
/// main thread are sent from a thread of their own; elsewhere they wait for the reply. A player
/// that does not run or answer leaves the answers empty and the commands without effect.
class SWScript
{
public:
    /// The one there is, as long as someone holds it, on the ports of who asked first. They outlive
    /// it, and its commands.
    static std::shared_ptr<const SWScript> sharedScript(platform::AppleEvents& events,
                                                        platform::RunLoop& runLoop);

    /// Artist and name of iTunes' current track, joined by " - "; either alone where the other is
    /// empty, none where both are.
    std::optional<QString> getCurrentTrack(const ScriptingWindow& window = {}) const;
    /// The first artwork of iTunes' current track that has a picture; null without one.
    QImage getCurrentArtwork(const ScriptingWindow& window = {}) const;
    PlayerState getPlayerState(const ScriptingWindow& window = {}) const;

    /// As what the window's application takes commands now; Other when it takes none. Never waits.
    platform::ApplicationRole roleOf(const ScriptingWindow& window) const;

    void playITunes(const ScriptingWindow& window = {}) const;
    void pauseITunes(const ScriptingWindow& window = {}) const;
    // To a player of that role; nothing for roles that are not named.
    /// The previous track of a music player or VLC.
    void skipLeft(platform::ApplicationRole player, const ScriptingWindow& window = {}) const;
    /// The next track of a music player or VLC.
    void skipRight(platform::ApplicationRole player, const ScriptingWindow& window = {}) const;
    /// Toggles VLC, or the first document of a movie player.
    void playPause(platform::ApplicationRole player, const ScriptingWindow& window = {}) const;
    void getMail(const ScriptingWindow& window = {}) const;

private:
    using Command = std::function<void(platform::AppleEvents& events)>;

    SWScript(platform::AppleEvents& events, platform::RunLoop& runLoop)
        : m_events(events), m_runLoop(runLoop)
    {
    }
    /// For the fields of a later day; there are none.
    void setUp() {}
    void offMainThread(Command command) const;

    platform::AppleEvents& m_events;
    platform::RunLoop& m_runLoop;
};

} // namespace lumbrix
