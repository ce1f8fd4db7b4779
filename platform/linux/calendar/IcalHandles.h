// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Owning pointers for objects of the iCalendar library.
#pragma once

#include <QtCore/QtGlobal>

#include <libical/ical.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace lumbrix::platform::ical
{

struct Deleter {
    void operator()(icalcomponent* component) const { icalcomponent_free(component); }
    void operator()(icalproperty* property) const { icalproperty_free(property); }
    void operator()(icalparser* parser) const { icalparser_free(parser); }
    void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
    void operator()(icaltimezone* zone) const { icaltimezone_free(zone, 1); }
    void operator()(char* buffer) const { icalmemory_free_buffer(buffer); }
};

using ComponentPtr = std::unique_ptr<icalcomponent, Deleter>;
using PropertyPtr = std::unique_ptr<icalproperty, Deleter>;
using ParserPtr = std::unique_ptr<icalparser, Deleter>;
using IteratorPtr = std::unique_ptr<icalrecur_iterator, Deleter>;
using ZonePtr = std::unique_ptr<icaltimezone, Deleter>;
using BufferPtr = std::unique_ptr<char, Deleter>;

/// All properties of a kind in a component, in order. Collected first, because a component stores
/// the position of only one iteration.
template <class Action>
void forEachProperty(icalcomponent* component, icalproperty_kind kind, Action action)
{
    std::vector<icalproperty*> properties;
    for (icalproperty* property = icalcomponent_get_first_property(component, kind); property;
         property = icalcomponent_get_next_property(component, kind))
        properties.push_back(property);
    for (icalproperty* property : properties)
        action(property);
}

/// The number of values in a part of a rule; 0 if the rule does not have that part.
template <std::size_t Size> qint64 listed(const short (&part)[Size])
{
    return std::find(part, part + Size, static_cast<short>(ICAL_RECURRENCE_ARRAY_MAX)) - part;
}

/// How many times of day a rule produces on each of its days.
inline qint64 timesOfDay(const icalrecurrencetype& rule)
{
    const auto atLeastOne = [](qint64 count) { return std::max<qint64>(count, 1); };
    return atLeastOne(listed(rule.by_hour)) * atLeastOne(listed(rule.by_minute)) *
           atLeastOne(listed(rule.by_second));
}

} // namespace lumbrix::platform::ical
