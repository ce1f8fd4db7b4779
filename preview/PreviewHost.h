// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The interfaces through which previews use the engine and its subsystems.
#pragma once

#include <QtCore/QString>
#include <QtGui/QImage>

#include <memory>
#include <optional>
#include <vector>

#include "platform/Workspace.h"
#include "scripting/PlayerState.h"

namespace lumbrix
{

class HotKeyCenter;
class ScreenyView;
struct EngineSettings;

/// The media players and mail programs that a preview's buttons control. Main thread. If several
/// players run, the one whose window the preview shows is meant.
class PlayerControls
{
public:
    virtual ~PlayerControls() = default;
    /// Sets iTunes, Mail, QuickTime and VLC of the preview by its application (null: unknown).
    virtual void setAppFlags(ScreenyView& preview,
                             const std::optional<platform::RunningApplication>& application) = 0;
    /// Whether the application can be controlled by the preview's buttons: a player may run without
    /// its remote-control interface, or lose it. Never waits.
    virtual bool isReachable(const ScreenyView& preview) = 0;
    virtual PlayerState playerState(const ScreenyView& preview) = 0;
    virtual std::optional<QString> currentTrack(const ScreenyView& preview) = 0;
    virtual QImage artwork(const ScreenyView& preview) = 0; ///< null if there is none
    virtual void skipLeft(ScreenyView& preview) = 0;
    virtual void skipRight(ScreenyView& preview) = 0;
    virtual void play(ScreenyView& preview) = 0;
    virtual void getMail(ScreenyView& preview) = 0;
    virtual void playPause(ScreenyView& preview) = 0;
};

/// The engine, as a preview sees it. Main thread; outlives every preview.
class PreviewHost
{
public:
    virtual ~PreviewHost() = default;
    virtual const EngineSettings& settings() const = 0;
    /// The mouse is on a preview, or it was chosen.
    virtual void mouseEntered(ScreenyView& preview) = 0;
    /// The mouse left a preview.
    virtual void mouseExited() = 0;
    /// The wheel over a preview: so many previews on, backward if negative.
    virtual void wheelTurned(ScreenyView& preview, int steps) = 0;
    /// The one that a click on a preview means: another one while the wheel has chosen that.
    virtual ScreenyView& meantBy(ScreenyView& clicked) = 0;
    virtual void removeAllScreenViews() = 0;
    /// Other windows of the row, which it had no room for.
    virtual void showMore() = 0;
    /// The previews shown, in strip order.
    virtual const std::vector<std::shared_ptr<ScreenyView>>& screenyViews() const = 0;
    /// Position among the previews shown; −1 when it is not one of them.
    virtual int indexOfScreenyView(const ScreenyView& preview) const = 0;
    /// Whether the numbers of the previews' Spaces tell something: not where all windows of the row
    /// are on the current Space.
    virtual bool doSpacesTell() const = 0;
    virtual void addToCache(const std::shared_ptr<ScreenyView>& preview) = 0;
    virtual HotKeyCenter& hotKeyCenter() = 0;
    virtual PlayerControls& playerControls() = 0;
};

} // namespace lumbrix
