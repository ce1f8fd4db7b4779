// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Implements taps by grabbing exactly the keys that enabled taps want; no other event is delayed.
#pragma once

#include <memory>
#include <vector>

#include "platform/EventTaps.h"
#include "platform/RunLoop.h"

namespace lumbrix::platform::x11
{

class KeyGrabs;

/// Sees no clicks: where a window manager's switcher holds the keyboard alone, panels get their
/// clicks themselves, and a click that was reported here as well would act twice.
class X11EventTaps final : public EventTaps
{
public:
    /// Made before the event thread starts.
    X11EventTaps(RunLoop& runLoop, KeyGrabs& grabs);
    ~X11EventTaps() override;

    std::unique_ptr<EventTap> createTap(TapEvents events, EventTap::Callback callback) override;

private:
    class Tap;
    struct Taps;

    void updateGrabs();

    KeyGrabs& m_grabs;
    /// Calls pending from the event thread hold it weakly.
    const std::shared_ptr<Taps> m_taps;
};

} // namespace lumbrix::platform::x11
