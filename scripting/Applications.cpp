// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "scripting/Applications.h"

namespace lumbrix
{

using platform::FourCharCode;
using platform::fourCharCode;

namespace
{

constexpr FourCharCode iTunesClass = fourCharCode("hook");
constexpr FourCharCode vlcClass = fourCharCode("VLC#");
constexpr FourCharCode movieClass = fourCharCode("MVWR");
constexpr FourCharCode mailClass = fourCharCode("emal");

ASReference applicationWithName(platform::AppleEvents& events, const char* name,
                                const ScriptingWindow& window)
{
    return {events, {QString::fromLatin1(name), window.pid, window.window}};
}

} // namespace

std::optional<QString> ITTrack::artist() const
{
    return m_track.property(fourCharCode("pArt")).getItem<QString>();
}

std::optional<QString> ITTrack::name() const
{
    return m_track.property(fourCharCode("pnam")).getItem<QString>();
}

std::vector<ASReference> ITTrack::artworks() const
{
    return m_track.elements(fourCharCode("cArt")).getElements();
}

QImage ITTrack::data(const ASReference& artwork)
{
    return artwork.property(fourCharCode("pPCT")).getItem<QImage>().value_or(QImage());
}

ITApplication::ITApplication(platform::AppleEvents& events, const ScriptingWindow& window)
    : m_application(applicationWithName(events, "iTunes", window))
{
}

void ITApplication::play() const { m_application.send(iTunesClass, fourCharCode("Play")); }

void ITApplication::pause() const { m_application.send(iTunesClass, fourCharCode("Paus")); }

void ITApplication::previousTrack() const { m_application.send(iTunesClass, fourCharCode("Prev")); }

void ITApplication::nextTrack() const { m_application.send(iTunesClass, fourCharCode("Next")); }

ITTrack ITApplication::currentTrack() const
{
    return ITTrack(m_application.property(fourCharCode("pTrk")));
}

std::optional<FourCharCode> ITApplication::playerState() const
{
    return m_application.property(fourCharCode("pPlS")).getItem<FourCharCode>();
}

VLApplication::VLApplication(platform::AppleEvents& events, const ScriptingWindow& window)
    : m_application(applicationWithName(events, "VLC", window))
{
}

void VLApplication::play() const { m_application.send(vlcClass, fourCharCode("VLC1")); }

void VLApplication::previous() const { m_application.send(vlcClass, fourCharCode("VLC3")); }

void VLApplication::next() const { m_application.send(vlcClass, fourCharCode("VLC4")); }

std::optional<bool> QPDocument::playing() const
{
    return m_document.property(fourCharCode("play")).getItem<bool>();
}

void QPDocument::play() const { m_document.send(movieClass, fourCharCode("play")); }

void QPDocument::pause() const { m_document.send(movieClass, fourCharCode("paus")); }

QPApplication::QPApplication(platform::AppleEvents& events, const ScriptingWindow& window)
    : m_application(applicationWithName(events, "QuickTime Player", window))
{
}

QPDocument QPApplication::document(int index) const
{
    return QPDocument(m_application.elements(fourCharCode("docu")).at(index));
}

MLApplication::MLApplication(platform::AppleEvents& events, const ScriptingWindow& window)
    : m_application(applicationWithName(events, "Mail", window))
{
}

void MLApplication::checkForNewMail() const { m_application.send(mailClass, fourCharCode("chma")); }

} // namespace lumbrix
