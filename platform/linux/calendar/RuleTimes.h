// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <vector>

#include "platform/linux/calendar/IcalHandles.h"
#include "platform/linux/calendar/WallTime.h"

namespace lumbrix::platform::ical
{

/// The times that a rule gives for an event that starts at `start`, in the event's local time,
/// between `from` and `until` (inclusive). The rule's own end is in local time too. Empty for a
/// nonsensical rule that would take too long to follow, and for one that would have to be counted
/// through centuries of days.
std::vector<icaltimetype> ruleTimes(icalrecurrencetype rule, const icaltimetype& start,
                                    WallSeconds from, WallSeconds until,
                                    const std::function<bool()>& stop);

} // namespace lumbrix::platform::ical
