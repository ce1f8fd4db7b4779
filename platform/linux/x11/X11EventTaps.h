// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Taps as grabs of exactly the keys that enabled taps want: no other event is ever delayed.
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
    /// Held weakly by what is on its way from the event thread.
    const std::shared_ptr<Taps> m_taps;
};

} // namespace lumbrix::platform::x11
