// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/MediaControls.h"

#include "model/AXRead.h"
#include "model/BundleIdentifiers.h"
#include "preview/ScreenyView.h"
#include "scripting/SWScript.h"

namespace lumbrix
{
namespace
{

using platform::ApplicationRole;

/// Several players may run; this selects the one whose window is previewed.
ScriptingWindow windowOf(const ScreenyView& preview)
{
    const SWElementPtr& element = preview.elementRef();
    return element ? ScriptingWindow{element->pid(), element->wid()} : ScriptingWindow();
}

/// The title of iTunes' main window is the application's name. Other players show the track there,
/// so their main windows are recognised by the subrole, which dialogs and palettes do not have.
bool isMainWindowOfMusicPlayer(const ScreenyView& preview, const QString& identifier,
                               ApplicationRole role, platform::Accessibility& accessibility)
{
    if (identifier == BundleIdentifier::ITunes)
        return preview.titleString() == u"iTunes";
    return role == ApplicationRole::MusicPlayer && preview.elementRef() &&
           AX::equals(accessibility, preview.elementRef()->element(), AX::Subrole,
                      AX::StandardWindow);
}

void showTrack(ScreenyView& preview, const SWScript& script)
{
    if (const auto track = script.getCurrentTrack(windowOf(preview)))
        preview.setTitleString(*track);
}

} // namespace

MediaControls::MediaControls(const platform::Desktop& ports)
    : m_ports(ports), m_script(SWScript::sharedScript(ports.appleEvents, ports.runLoop))
{
}

void MediaControls::setAppFlags(ScreenyView& preview,
                                const std::optional<platform::RunningApplication>& application)
{
    if (!application)
        return;
    const QString& identifier = application->bundleIdentifier;
    // An application without a known role, such as a browser, may still have a player.
    const ApplicationRole role = application->role != ApplicationRole::Other
                                     ? application->role
                                     : m_script->roleOf(windowOf(preview));
    if (isMainWindowOfMusicPlayer(preview, identifier, role, m_ports.accessibility)) {
        preview.setITunes(true);
        showTrack(preview, *m_script);
        if (const QImage picture = artwork(preview); !picture.isNull())
            preview.setImage(picture);
    } else if (identifier == BundleIdentifier::Mail || role == ApplicationRole::Mail) {
        preview.setMail(true);
    } else if (identifier == BundleIdentifier::QuickTimePlayer ||
               role == ApplicationRole::MoviePlayer) {
        preview.setQuickTime(true);
    } else if (identifier == BundleIdentifier::VLC || role == ApplicationRole::VLC) {
        preview.setVLC(true);
    }
}

bool MediaControls::isReachable(const ScreenyView& preview)
{
    return m_script->roleOf(windowOf(preview)) != ApplicationRole::Other;
}

PlayerState MediaControls::playerState(const ScreenyView& preview)
{
    return m_script->getPlayerState(windowOf(preview));
}

std::optional<QString> MediaControls::currentTrack(const ScreenyView& preview)
{
    return m_script->getCurrentTrack(windowOf(preview));
}

QImage MediaControls::artwork(const ScreenyView& preview)
{
    return m_script->getCurrentArtwork(windowOf(preview));
}

// The title is read at once, while the skip is still in progress, so it may be the former track's;
// the next update of the preview corrects it.
void MediaControls::skipLeft(ScreenyView& preview)
{
    if (preview.iTunes()) {
        m_script->skipLeft(ApplicationRole::MusicPlayer, windowOf(preview));
        showTrack(preview, *m_script);
    } else if (preview.VLC()) {
        m_script->skipLeft(ApplicationRole::VLC, windowOf(preview));
    }
}

void MediaControls::skipRight(ScreenyView& preview)
{
    if (preview.iTunes()) {
        m_script->skipRight(ApplicationRole::MusicPlayer, windowOf(preview));
        showTrack(preview, *m_script);
    } else if (preview.VLC()) {
        m_script->skipRight(ApplicationRole::VLC, windowOf(preview));
    }
}

void MediaControls::play(ScreenyView& preview)
{
    if (!preview.iTunes())
        return;
    if (preview.isPlaying())
        m_script->pauseITunes(windowOf(preview));
    else
        m_script->playITunes(windowOf(preview));
    preview.setPlayState(!preview.isPlaying());
}

void MediaControls::getMail(ScreenyView& preview)
{
    if (preview.Mail())
        m_script->getMail(windowOf(preview));
}

void MediaControls::playPause(ScreenyView& preview)
{
    if (preview.VLC())
        m_script->playPause(ApplicationRole::VLC, windowOf(preview));
    else if (preview.QuickTime())
        m_script->playPause(ApplicationRole::MoviePlayer, windowOf(preview));
}

} // namespace lumbrix
