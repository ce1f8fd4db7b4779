// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/calendar/IcalCalendar.h"

#include <algorithm>
#include <map>
#include <utility>

namespace lumbrix::platform::ical
{
namespace
{

/// The events of a text, grouped into series, in the order of the text.
using Series = std::vector<std::vector<icalcomponent*>>;

Series seriesOf(const std::vector<ComponentPtr>& events)
{
    Series series;
    std::map<QByteArray, std::size_t> places;
    for (const ComponentPtr& event : events) {
        const char* uid = icalcomponent_get_uid(event.get());
        const auto [place, isNew] = places.emplace(uid, series.size());
        // An event without a UID does not belong to a series.
        if (isNew || place->first.isEmpty())
            series.push_back({event.get()});
        else
            series[place->second].push_back(event.get());
    }
    return series;
}

} // namespace

Contents readCalendar(QIODevice& text, const Window& window, const QTimeZone& local,
                      const Stop& stop)
{
    Contents contents;
    std::vector<ComponentPtr> events;
    std::vector<ComponentPtr> definitions;
    contents.heading = read(
        text,
        [&](ComponentPtr component) {
            if (icalcomponent_isa(component.get()) == ICAL_VTIMEZONE_COMPONENT)
                definitions.push_back(std::move(component));
            else if (mayMatter(component.get(), window))
                events.push_back(std::move(component));
        },
        stop);
    ZoneTable zones(local);
    for (const ComponentPtr& definition : definitions)
        zones.define(definition.get());
    FruitlessRules fruitless;
    for (const auto& series : seriesOf(events)) {
        if (stop() || contents.occurrences.size() >= maxOccurrences)
            break;
        auto found = expand(series, zones, window, fruitless, stop);
        std::move(found.begin(), found.end(), std::back_inserter(contents.occurrences));
    }
    std::stable_sort(contents.occurrences.begin(), contents.occurrences.end(),
                     [](const Occurrence& a, const Occurrence& b) { return a.start < b.start; });
    contents.isComplete = !stop();
    return contents;
}

} // namespace lumbrix::platform::ical
