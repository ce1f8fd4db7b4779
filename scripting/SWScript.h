// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Controls media players and mail programs without bringing them forward.
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

/// Any thread. Queries wait for the answer, at most 0.2 s each. Commands given on the main thread
/// are sent from a separate thread; on other threads they wait for the reply. If a player does not
/// run or answer, queries return empty values and commands have no effect.
class SWScript
{
public:
    /// The shared instance, which lives as long as somebody holds it. It uses the ports of the
    /// first caller, which must outlive it and its commands.
    static std::shared_ptr<const SWScript> sharedScript(platform::AppleEvents& events,
                                                        platform::RunLoop& runLoop);

    /// Artist and name of iTunes' current track, joined by " - "; only one of them if the other is
    /// empty, empty if both are.
    std::optional<QString> getCurrentTrack(const ScriptingWindow& window = {}) const;
    /// The first artwork of iTunes' current track that has a picture; null if there is none.
    QImage getCurrentArtwork(const ScriptingWindow& window = {}) const;
    PlayerState getPlayerState(const ScriptingWindow& window = {}) const;

    /// The role in which the window's application accepts commands now; Other if it accepts none.
    /// Never waits.
    platform::ApplicationRole roleOf(const ScriptingWindow& window) const;

    void playITunes(const ScriptingWindow& window = {}) const;
    void pauseITunes(const ScriptingWindow& window = {}) const;
    // Commands to a player of that role. They do nothing for roles that their comment does not
    // name.
    /// Previous track of a music player or VLC.
    void skipLeft(platform::ApplicationRole player, const ScriptingWindow& window = {}) const;
    /// Next track of a music player or VLC.
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
    /// Reserved; there are no fields yet.
    void setUp() {}
    void offMainThread(Command command) const;

    platform::AppleEvents& m_events;
    platform::RunLoop& m_runLoop;
};

} // namespace lumbrix
