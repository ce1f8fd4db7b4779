// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Whether windows' pixmaps have their title bars and borders.
#pragma once

#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform::x11
{

class ScreenWatch;
class X11WindowTracker;

/// KWin draws decorations in its compositor, over frames that are left black. Without one, or under
/// another one, it draws them in the frames; a picture of a window is without them all the same
/// where another one runs. Event thread.
class DecorationWatch final : public WindowListener
{
public:
    /// Both outlive it.
    DecorationWatch(X11WindowTracker& tracker, const ScreenWatch& screens)
        : m_tracker(tracker), m_screens(screens)
    {
    }

    void managerChanged(const Manager& manager) override;
    void compositorChanged(bool) override { tell(); }

private:
    void tell();

    X11WindowTracker& m_tracker;
    const ScreenWatch& m_screens;
    bool m_isKWin = false;
};

} // namespace lumbrix::platform::x11
