// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/accessibility/PlaceRequests.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "platform/StringLiterals.h"
#include "platform/linux/accessibility/X11Element.h"

namespace lumbrix::platform
{

namespace
{

using Kind = RequestError::Kind;

RequestError invalid(const QString& message) { return {Kind::InvalidArguments, message}; }

RequestError nothingToShow(const QString& message) { return {Kind::NothingToShow, message}; }

/// The range of the X protocol; beyond it sums could overflow.
bool isRootCoordinate(int value)
{
    return value >= std::numeric_limits<std::int16_t>::min() &&
           value <= std::numeric_limits<std::int16_t>::max();
}

} // namespace

std::optional<RequestError> PlaceRequests::readPlace(const RequestedPlace& place,
                                                     DockState& state) const
{
    if (place.width <= 0 || place.height <= 0)
        return invalid(u"the rectangle has no area"_s);
    const std::array numbers{place.x, place.y, place.width, place.height};
    const QRect rect = std::ranges::all_of(numbers, isRootCoordinate)
                           ? QRect(place.x, place.y, place.width, place.height)
                           : QRect();
    const auto screens = m.space.screens();
    if (std::ranges::none_of(screens,
                             [&rect](const QRect& screen) { return screen.intersects(rect); }))
        return invalid(u"the rectangle is on no monitor"_s);
    const std::optional<DockEdge> edge = edgeNamed(place.edge);
    if (!edge)
        return invalid(u"the edge is none of \"bottom\", \"top\", \"left\" and \"right\""_s);
    state.edge = *edge;
    state.items.resize(1);
    state.items.front().rect = rect;
    state.items.front().magnified = rect;
    return std::nullopt;
}

std::optional<RequestError> PlaceRequests::showForApplication(const QString& entryId,
                                                              const RequestedPlace& place)
{
    const auto state = std::make_shared<DockState>();
    if (auto error = readPlace(place, *state))
        return error;
    const QLatin1String suffix(".desktop");
    const QString id = entryId.endsWith(suffix) ? entryId.chopped(suffix.size()) : entryId;
    if (id.isEmpty())
        return invalid(u"the desktop-entry id is empty"_s);
    DockItem& item = state->items.front();
    if (const DesktopEntryPtr entry = m.entries.byId(id)) {
        item.desktopFile = entry->path;
        return m.registry.applicationForDesktopFile(entry->path)
                   ? show(state)
                   : nothingToShow(u"the application has no window"_s);
    }
    // An application without a desktop entry is found by the class of its windows.
    for (Application& application : m.registry.applications()) {
        if (application.running.bundleIdentifier == id && !application.windows.empty()) {
            item.windows = std::move(application.windows);
            return show(state);
        }
    }
    return invalid(u"there is no such desktop entry, and no such program runs"_s);
}

std::optional<RequestError> PlaceRequests::showForWindows(const std::vector<std::uint32_t>& windows,
                                                          const RequestedPlace& place)
{
    const auto state = std::make_shared<DockState>();
    if (auto error = readPlace(place, *state))
        return error;
    DockItem& item = state->items.front();
    item.areChosen = true;
    for (const xcb_window_t id : windows) {
        const x11::TrackedWindowPtr window = m.tracker.window(id);
        if (!window || !isApplicationWindow(*window))
            return invalid(u"0x%1 is no window of an application"_s.arg(id, 0, 16));
        if (std::ranges::find(item.windows, id) == item.windows.end())
            item.windows.push_back(id);
    }
    if (item.windows.empty())
        return invalid(u"there are no windows"_s);
    if (item.windows.size() > maxWindows)
        return invalid(u"there are more than %1 windows"_s.arg(maxWindows));
    return show(state);
}

std::optional<RequestError> PlaceRequests::show(const std::shared_ptr<DockState>& state)
{
    if (!m_host)
        return RequestError{Kind::Disabled, u"Lumbrix is just starting or ending"_s};
    const DockItemId id = state->items.front().id = newDockItemId();
    const QRect place = state->items.front().rect;
    m.docks.addRequested(state);
    const Answer answer = m_host->show(X11Element::dockItem(id));
    if (answer != Answer::Accepted) {
        m.docks.removeRequested(id);
        return answer == Answer::Disabled
                   ? RequestError{Kind::Disabled, u"previews are turned off in the preferences"_s}
                   : nothingToShow(u"no window that the user's settings let in"_s);
    }
    m_current = id;
    const bool isOn = place.contains(m.pointer());
    const std::lock_guard lock(m_mutex);
    m_watched = id;
    m_place = place;
    m_isPointerOn = isOn;
    return std::nullopt;
}

void PlaceRequests::hide()
{
    if (m_current != 0 && m_host)
        m_host->hide(X11Element::dockItem(m_current));
}

void PlaceRequests::abandon()
{
    if (m_current != 0 && m_host)
        m_host->abandon(X11Element::dockItem(m_current));
}

void PlaceRequests::rowEnded(const ElementRef& reference)
{
    const X11Element* element = X11Element::from(reference);
    if (!element || element->kind() != X11Element::Kind::DockItem)
        return;
    m.docks.removeRequested(element->dockItemId());
    if (element->dockItemId() != m_current)
        return;
    m_current = 0;
    {
        const std::lock_guard lock(m_mutex);
        m_watched = 0;
    }
    if (m_ended)
        m_ended();
}

void PlaceRequests::pointerMoved(QPoint point, xcb_window_t)
{
    DockItemId left = 0;
    {
        const std::lock_guard lock(m_mutex);
        const bool isOn = m_watched != 0 && m_place.contains(point);
        if (std::exchange(m_isPointerOn, isOn) && !isOn)
            left = m_watched;
    }
    if (left != 0)
        m.runLoop.performOnMainThread(m_guard.ifAlive([this, left] { pointerLeft(left); }), false);
}

void PlaceRequests::pointerLeft(DockItemId id)
{
    if (id == m_current && m_host)
        m_host->mouseLeft(X11Element::dockItem(id));
}

} // namespace lumbrix::platform
