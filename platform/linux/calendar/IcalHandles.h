// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the iCalendar library hands out, each owned by one pointer.
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

/// Every property of a kind within a component, in their order. They are collected first, as the
/// component keeps the place of one reader only.
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

/// How many numbers a part of a rule lists; 0 when the rule does not have it.
template <std::size_t Size> qint64 listed(const short (&part)[Size])
{
    return std::find(part, part + Size, static_cast<short>(ICAL_RECURRENCE_ARRAY_MAX)) - part;
}

/// How many times of a day a rule gives by itself, where it gives days.
inline qint64 timesOfDay(const icalrecurrencetype& rule)
{
    const auto atLeastOne = [](qint64 count) { return std::max<qint64>(count, 1); };
    return atLeastOne(listed(rule.by_hour)) * atLeastOne(listed(rule.by_minute)) *
           atLeastOne(listed(rule.by_second));
}

} // namespace lumbrix::platform::ical
