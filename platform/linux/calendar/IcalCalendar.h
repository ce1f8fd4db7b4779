// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// An iCalendar text, and its occurrences within an interval.
#pragma once

#include <QtCore/QIODevice>
#include <QtCore/QTimeZone>

#include <vector>

#include "platform/linux/calendar/IcalReader.h"
#include "platform/linux/calendar/Recurrence.h"

namespace lumbrix::platform::ical
{

struct Contents {
    Heading heading;
    std::vector<Occurrence> occurrences; ///< by start, then in the order of the text
    bool isComplete = true;              ///< false if it was stopped before the end
};

/// Any thread, but one at a time: the library has global state. `local` is the user's time zone,
/// used for times without a zone and for all-day events.
Contents readCalendar(QIODevice& text, const Window& window, const QTimeZone& local,
                      const Stop& stop);

} // namespace lumbrix::platform::ical
