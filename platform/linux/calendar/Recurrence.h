// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The occurrences of events within a stretch of time.
#pragma once

#include <QtCore/QString>

#include <functional>
#include <vector>

#include "platform/linux/calendar/IcalHandles.h"
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

/// Whatever a text would still bring when there are so many is left out: nobody could look at it.
inline constexpr std::size_t maxOccurrences = 5000;

/// Whether an event may happen within the window or change one that does; judged without its zone,
/// so for some days around it is yes.
bool mayMatter(icalcomponent* event, const Window& window);

/// What is asked between steps that may take long; true ends the work.
using Stop = std::function<bool()>;

/// The occurrences of events that have the same UID (an event and the exceptions to its rule), or
/// of a single one, that overlap the window. In no order. A single event gives a tenth of
/// maxOccurrences at most, so that it does not take the place of others.
std::vector<Occurrence> expand(const std::vector<icalcomponent*>& series, ZoneTable& zones,
                               const Window& window, const Stop& stop);

} // namespace lumbrix::platform::ical
