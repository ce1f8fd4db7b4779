// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A pointer that arrives somewhere, and when what comes up because of it is mapped and painted.
#pragma once

#include <functional>
#include <optional>

#include "Display.h"
#include "support/PaintWatch.h"

namespace lumbrix::bench
{

/// Milliseconds from the arrival.
struct ArrivalTimes {
    double mapped = 0;  ///< to the last window's mapping
    double first = 0;   ///< until each was drawn on once
    double painted = 0; ///< to the last drawing
};

/// Main thread. The display outlives it.
class Arrival
{
public:
    explicit Arrival(privatedesk::Display& display) : m_display(display), m_watch(display.name()) {}

    /// A faked event of the pointer or the keyboard, sent at once.
    void send(std::uint8_t type, std::uint8_t detail, QPoint at = {});
    /// Waits until nothing was mapped or painted for a tenth of a second, and then for what is to
    /// be seen; for two seconds at most.
    void settle(const std::function<bool()>& isSeen = [] { return true; });
    /// From now on, by send().
    void begin();
    /// Waits until that many previews are up and painted. They are looked at only after everything
    /// happened, so as not to disturb it.
    void awaitPreviews(std::size_t count);
    /// Of the windows that count; none where none was mapped and painted since begin(). Says every
    /// event that it sees, if it is to.
    std::optional<ArrivalTimes> times(const std::function<bool(xcb_window_t)>& counts,
                                      bool isVerbose = false) const;
    /// The same of the previews that are up now.
    std::optional<ArrivalTimes> timesOfPreviews(bool isVerbose = false) const;
    bool hasPaintedAny() const { return !m_watch.paintedWindows().empty(); }

private:
    privatedesk::Display& m_display;
    PaintWatch m_watch;
    Clock::time_point m_begun;
};

} // namespace lumbrix::bench
