// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The commands and properties of the four applications that previews use, with the names of their
// scripting dictionaries.
#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/WindowID.h"
#include "scripting/ASReference.h"

namespace lumbrix
{

/// The window for which an application is addressed, if several have the same name; without it, any
/// that runs.
struct ScriptingWindow {
    std::int32_t pid = 0;
    platform::WindowID window = 0;
};

class ITTrack
{
public:
    explicit ITTrack(ASReference track) : m_track(std::move(track)) {}

    std::optional<QString> artist() const;
    std::optional<QString> name() const;
    std::vector<ASReference> artworks() const;
    /// The picture of one of the artworks; null if there is none.
    static QImage data(const ASReference& artwork);

private:
    ASReference m_track;
};

class ITApplication
{
public:
    ITApplication(platform::AppleEvents& events, const ScriptingWindow& window);

    // Player states.
    static constexpr platform::FourCharCode paused = platform::fourCharCode("kPSp");
    static constexpr platform::FourCharCode playing = platform::fourCharCode("kPSP");
    static constexpr platform::FourCharCode stopped = platform::fourCharCode("kPSS");

    void play() const;
    void pause() const;
    void previousTrack() const;
    void nextTrack() const;
    ITTrack currentTrack() const;
    std::optional<platform::FourCharCode> playerState() const;

private:
    ASReference m_application;
};

class VLApplication
{
public:
    VLApplication(platform::AppleEvents& events, const ScriptingWindow& window);

    void play() const; ///< the play/pause button
    void previous() const;
    void next() const;

private:
    ASReference m_application;
};

class QPDocument
{
public:
    explicit QPDocument(ASReference document) : m_document(std::move(document)) {}

    std::optional<bool> playing() const;
    void play() const;
    void pause() const;

private:
    ASReference m_document;
};

class QPApplication
{
public:
    QPApplication(platform::AppleEvents& events, const ScriptingWindow& window);

    QPDocument document(int index) const; ///< from 1

private:
    ASReference m_application;
};

class MLApplication
{
public:
    MLApplication(platform::AppleEvents& events, const ScriptingWindow& window);

    void checkForNewMail() const;

private:
    ASReference m_application;
};

} // namespace lumbrix
