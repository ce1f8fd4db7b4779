// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The occurrences of events within an interval.
#pragma once

#include <QtCore/QString>

#include <functional>
#include <vector>

#include "platform/linux/calendar/IcalHandles.h"
#include "platform/linux/calendar/RuleTimes.h"
#include "platform/linux/calendar/WallTime.h"

namespace lumbrix::platform::ical
{

struct Window {
    Instant start = 0;
    Instant end = 0;
};

struct Occurrence {
    QString title;
    Instant start = 0;
    Instant end = 0;
};

/// Maximum number of occurrences; more could not be shown anyway.
inline constexpr std::size_t maxOccurrences = 5000;

/// Whether an event may occur within the window or change one that does. Ignores the event's zone,
/// so it is also true for some days before and after the window.
bool mayMatter(icalcomponent* event, const Window& window);

/// Called between steps that may take long; true ends the work.
using Stop = std::function<bool()>;

/// The occurrences that overlap the window, for events with the same UID (an event and the
/// exceptions to its rule) or for a single event. Not sorted. A single event has at most a tenth of
/// maxOccurrences, so that it does not displace others. `fruitless` is of the whole file.
std::vector<Occurrence> expand(const std::vector<icalcomponent*>& series, ZoneTable& zones,
                               const Window& window, FruitlessRules& fruitless, const Stop& stop);

} // namespace lumbrix::platform::ical
