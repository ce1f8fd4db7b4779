// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Implements the controls of previews of media players and mail programs, using the scripting
// layer.
#pragma once

#include <memory>

#include "platform/Desktop.h"
#include "preview/PreviewHost.h"

namespace lumbrix
{

class SWScript;

class MediaControls final : public PlayerControls
{
public:
    /// The ports must outlive it.
    explicit MediaControls(const platform::Desktop& ports);

    void setAppFlags(ScreenyView& preview,
                     const std::optional<platform::RunningApplication>& application) override;
    bool isReachable(const ScreenyView& preview) override;
    PlayerState playerState(const ScreenyView& preview) override;
    std::optional<QString> currentTrack(const ScreenyView& preview) override;
    QImage artwork(const ScreenyView& preview) override;
    void skipLeft(ScreenyView& preview) override;
    void skipRight(ScreenyView& preview) override;
    /// Play while it is stopped, pause while it plays.
    void play(ScreenyView& preview) override;
    void getMail(ScreenyView& preview) override;
    void playPause(ScreenyView& preview) override;

private:
    const platform::Desktop& m_ports;
    const std::shared_ptr<const SWScript> m_script;
};

} // namespace lumbrix
