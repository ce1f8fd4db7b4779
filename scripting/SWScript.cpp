// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "scripting/SWScript.h"

#include "platform/AppleEvents.h"
#include "platform/Desktop.h"
#include "platform/RunLoop.h"

namespace lumbrix
{

using platform::ApplicationRole;

SWScript& SWScript::sharedScript()
{
    static SWScript script = [] {
        SWScript made;
        made.setUp();
        return made;
    }();
    return script;
}

void SWScript::offMainThread(std::function<void()> command)
{
    platform::RunLoop& runLoop = platform::desktop().runLoop;
    if (!runLoop.isMainThread()) {
        command();
        return;
    }
    runLoop.detachThread("script",
                         [command = std::move(command)](const platform::Thread&) { command(); });
}

std::optional<QString> SWScript::getCurrentTrack(const ScriptingWindow& window) const
{
    const ITTrack track = ITApplication(window).currentTrack();
    const QString artist = track.artist().value_or(QString());
    const QString name = track.name().value_or(QString());
    if (artist.isEmpty())
        return name.isEmpty() ? std::nullopt : std::optional(name);
    return name.isEmpty() ? artist : artist + QStringLiteral(" - ") + name;
}

QImage SWScript::getCurrentArtwork(const ScriptingWindow& window) const
{
    for (const ASReference& artwork : ITApplication(window).currentTrack().artworks()) {
        if (QImage picture = ITTrack::data(artwork); !picture.isNull())
            return picture;
    }
    return {};
}

PlayerState SWScript::getPlayerState(const ScriptingWindow& window) const
{
    const auto state = ITApplication(window).playerState();
    switch (state.value_or(0)) {
    case ITApplication::playing:
        return PlayerState::Playing;
    case ITApplication::paused:
    case ITApplication::stopped:
        return PlayerState::Stopped;
    default:
        return PlayerState::Unknown;
    }
}

ApplicationRole SWScript::roleOf(const ScriptingWindow& window) const
{
    return platform::desktop().appleEvents.roleOf(window.pid, window.window);
}

void SWScript::playITunes(const ScriptingWindow& window) const
{
    offMainThread([window] { ITApplication(window).play(); });
}

void SWScript::pauseITunes(const ScriptingWindow& window) const
{
    offMainThread([window] { ITApplication(window).pause(); });
}

void SWScript::skipLeft(ApplicationRole player, const ScriptingWindow& window) const
{
    if (player == ApplicationRole::MusicPlayer)
        offMainThread([window] { ITApplication(window).previousTrack(); });
    else if (player == ApplicationRole::VLC)
        offMainThread([window] { VLApplication(window).previous(); });
}

void SWScript::skipRight(ApplicationRole player, const ScriptingWindow& window) const
{
    if (player == ApplicationRole::MusicPlayer)
        offMainThread([window] { ITApplication(window).nextTrack(); });
    else if (player == ApplicationRole::VLC)
        offMainThread([window] { VLApplication(window).next(); });
}

void SWScript::playPause(ApplicationRole player, const ScriptingWindow& window) const
{
    if (player == ApplicationRole::VLC) {
        offMainThread([window] { VLApplication(window).play(); });
    } else if (player == ApplicationRole::MoviePlayer) {
        offMainThread([window] {
            const QPDocument document = QPApplication(window).document(1);
            if (document.playing().value_or(false))
                document.pause();
            else
                document.play();
        });
    }
}

void SWScript::getMail(const ScriptingWindow& window) const
{
    offMainThread([window] { MLApplication(window).checkForNewMail(); });
}

} // namespace lumbrix
