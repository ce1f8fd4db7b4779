// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/ManagedSet.h"

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/WindowProperties.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace lumbrix::platform::x11
{
namespace
{

constexpr std::array properties{
    AtomName::NetClientList,     AtomName::NetClientListStacking, AtomName::NetActiveWindow,
    AtomName::NetCurrentDesktop, AtomName::NetNumberOfDesktops,   AtomName::NetSupported,
};

std::vector<std::uint32_t> longsOf(const Reply<xcb_get_property_reply_t>& reply)
{
    const auto longs = PropertyValue{reply.get()}.longs();
    return {longs.begin(), longs.end()};
}

/// A window listed twice would be shown twice.
std::vector<xcb_window_t> withoutDuplicates(std::vector<xcb_window_t> windows)
{
    std::unordered_set<xcb_window_t> seen;
    std::erase_if(windows, [&](xcb_window_t window) {
        return window == XCB_NONE || !seen.insert(window).second;
    });
    return windows;
}

int numberOr(const std::vector<std::uint32_t>& longs, int fallback)
{
    return longs.empty() ? fallback : static_cast<int>(std::min(longs[0], 0xffffU));
}

} // namespace

bool ManagedSet::isInteresting(xcb_atom_t property, const Atoms& atoms)
{
    return std::any_of(properties.begin(), properties.end(),
                       [&](AtomName name) { return atoms[name] == property; });
}

void ManagedSet::fetch(const Connection& connection, const Atoms& atoms)
{
    std::array<xcb_get_property_cookie_t, properties.size()> cookies{};
    for (std::size_t i = 0; i < properties.size(); ++i)
        cookies[i] = xcb_get_property(connection.get(), 0, connection.root(), atoms[properties[i]],
                                      XCB_GET_PROPERTY_TYPE_ANY, 0, 0x4000);
    std::array<std::vector<std::uint32_t>, properties.size()> values;
    for (std::size_t i = 0; i < properties.size(); ++i)
        values[i] = longsOf(connection.reply(xcb_get_property_reply, cookies[i]));

    clients = withoutDuplicates(std::move(values[0]));
    // A list may still contain a window of an ended client, whose ids belong to us by now. Watching
    // it, and then no longer watching it, would remove our event selection on a window of our own.
    std::erase_if(clients, [&connection](xcb_window_t id) { return connection.isOwn(id); });
    stacking = std::move(values[1]);
    active = values[2].empty() ? XCB_NONE : values[2][0];
    currentDesktop = numberOr(values[3], 0);
    desktopCount = std::max(1, numberOr(values[4], 1));
    hasHiddenState = std::find(values[5].begin(), values[5].end(),
                               atoms[AtomName::NetWmStateHidden]) != values[5].end();
}

bool ManagedSet::isStackingComplete() const
{
    const std::unordered_set<xcb_window_t> stacked(stacking.begin(), stacking.end());
    return std::all_of(clients.begin(), clients.end(),
                       [&](xcb_window_t window) { return stacked.contains(window); });
}

std::vector<xcb_window_t> rootChildren(const Connection& connection)
{
    const auto reply =
        connection.reply(xcb_query_tree_reply, xcb_query_tree(connection.get(), connection.root()));
    if (!reply)
        return {};
    const xcb_window_t* children = xcb_query_tree_children(reply.get());
    return {children, children + xcb_query_tree_children_length(reply.get())};
}

std::vector<xcb_window_t> topmostFirst(std::span<const xcb_window_t> windows,
                                       std::span<const xcb_window_t> lowestFirst)
{
    std::unordered_map<xcb_window_t, std::size_t> place;
    for (std::size_t i = 0; i < lowestFirst.size(); ++i)
        place[lowestFirst[i]] = i;
    const auto placeOf = [&](xcb_window_t window) {
        const auto it = place.find(window);
        return it == place.end() ? lowestFirst.size() : it->second;
    };
    std::vector<xcb_window_t> sorted(windows.begin(), windows.end());
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&](xcb_window_t a, xcb_window_t b) { return placeOf(a) > placeOf(b); });
    return sorted;
}

} // namespace lumbrix::platform::x11
