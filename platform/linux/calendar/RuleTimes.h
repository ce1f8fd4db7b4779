// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <vector>

#include "platform/linux/calendar/IcalHandles.h"
#include "platform/linux/calendar/WallTime.h"

namespace lumbrix::platform::ical
{

/// The times that a rule gives to an event that starts at `start`, on its own clock, between the
/// two (inclusive) and perhaps some before. The rule's own end is on that clock too. None for a
/// rule that nobody could mean and that would take ages to follow, or that would have to be counted
/// through centuries of days.
std::vector<icaltimetype> ruleTimes(icalrecurrencetype rule, const icaltimetype& start,
                                    WallSeconds from, WallSeconds until,
                                    const std::function<bool()>& stop);

} // namespace lumbrix::platform::ical
