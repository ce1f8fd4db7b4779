// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <vector>

#include "platform/linux/calendar/IcalHandles.h"
#include "platform/linux/calendar/WallTime.h"

namespace lumbrix::platform::ical
{

/// Rules of one file that never come true. The library looks for their first time through centuries
/// of months, for a second or two each, and cannot be stopped meanwhile: after a few of them no
/// more rules of that file are followed.
class FruitlessRules
{
public:
    void note() { ++m_count; }
    bool areTooMany() const { return m_count >= 10; }

private:
    int m_count = 0;
};

/// The times that a rule gives for an event that starts at `start`, in the event's local time,
/// between `from` and `until` (inclusive). The rule's own end is in local time too. Empty for a
/// nonsensical rule that would take too long to follow, and for one that would have to be counted
/// through centuries of days, and after too many fruitless ones.
std::vector<icaltimetype> ruleTimes(icalrecurrencetype rule, const icaltimetype& start,
                                    WallSeconds from, WallSeconds until, FruitlessRules& fruitless,
                                    const std::function<bool()>& stop);

} // namespace lumbrix::platform::ical
