// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "scripting/SWScript.h"

#include <mutex>
#include <utility>

#include "platform/AppleEvents.h"
#include "platform/RunLoop.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{

using platform::ApplicationRole;

std::shared_ptr<const SWScript> SWScript::sharedScript(platform::AppleEvents& events,
                                                       platform::RunLoop& runLoop)
{
    static std::mutex mutex;
    static std::weak_ptr<const SWScript> shared; // guarded by mutex
    const std::lock_guard lock(mutex);
    std::shared_ptr<const SWScript> script = shared.lock();
    if (!script) {
        const std::shared_ptr<SWScript> made(new SWScript(events, runLoop));
        made->setUp();
        shared = script = made;
    }
    return script;
}

void SWScript::offMainThread(Command command) const
{
    if (!m_runLoop.isMainThread()) {
        command(m_events);
        return;
    }
    m_runLoop.detachThread("script", [command = std::move(command), &events = m_events](
                                         const platform::Thread&) { command(events); });
}

std::optional<QString> SWScript::getCurrentTrack(const ScriptingWindow& window) const
{
    const ITTrack track = ITApplication(m_events, window).currentTrack();
    const QString artist = track.artist().value_or(QString());
    const QString name = track.name().value_or(QString());
    if (artist.isEmpty())
        return name.isEmpty() ? std::nullopt : std::optional(name);
    return name.isEmpty() ? artist : artist + u" - "_s + name;
}

QImage SWScript::getCurrentArtwork(const ScriptingWindow& window) const
{
    for (const ASReference& artwork : ITApplication(m_events, window).currentTrack().artworks())
        if (QImage picture = ITTrack::data(artwork); !picture.isNull())
            return picture;
    return {};
}

PlayerState SWScript::getPlayerState(const ScriptingWindow& window) const
{
    const auto state = ITApplication(m_events, window).playerState();
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
    return m_events.roleOf(window.pid, window.window);
}

void SWScript::playITunes(const ScriptingWindow& window) const
{
    offMainThread(
        [window](platform::AppleEvents& events) { ITApplication(events, window).play(); });
}

void SWScript::pauseITunes(const ScriptingWindow& window) const
{
    offMainThread(
        [window](platform::AppleEvents& events) { ITApplication(events, window).pause(); });
}

void SWScript::skipLeft(ApplicationRole player, const ScriptingWindow& window) const
{
    if (player == ApplicationRole::MusicPlayer)
        offMainThread([window](platform::AppleEvents& events) {
            ITApplication(events, window).previousTrack();
        });
    else if (player == ApplicationRole::VLC)
        offMainThread(
            [window](platform::AppleEvents& events) { VLApplication(events, window).previous(); });
}

void SWScript::skipRight(ApplicationRole player, const ScriptingWindow& window) const
{
    if (player == ApplicationRole::MusicPlayer)
        offMainThread(
            [window](platform::AppleEvents& events) { ITApplication(events, window).nextTrack(); });
    else if (player == ApplicationRole::VLC)
        offMainThread(
            [window](platform::AppleEvents& events) { VLApplication(events, window).next(); });
}

void SWScript::playPause(ApplicationRole player, const ScriptingWindow& window) const
{
    if (player == ApplicationRole::VLC) {
        offMainThread(
            [window](platform::AppleEvents& events) { VLApplication(events, window).play(); });
    } else if (player == ApplicationRole::MoviePlayer) {
        offMainThread([window](platform::AppleEvents& events) {
            const QPDocument document = QPApplication(events, window).document(1);
            if (document.playing().value_or(false))
                document.pause();
            else
                document.play();
        });
    }
}

void SWScript::getMail(const ScriptingWindow& window) const
{
    offMainThread([window](platform::AppleEvents& events) {
        MLApplication(events, window).checkForNewMail();
    });
}

} // namespace lumbrix
