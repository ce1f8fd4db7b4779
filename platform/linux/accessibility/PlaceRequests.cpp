// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/accessibility/PlaceRequests.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "platform/linux/accessibility/X11Element.h"

namespace lumbrix::platform
{

namespace
{

using Kind = RequestError::Kind;

RequestError invalid(const QString& message) { return {Kind::InvalidArguments, message}; }

RequestError nothingToShow(const QString& message) { return {Kind::NothingToShow, message}; }

/// What the protocol of the display can say; beyond, sums do not fit any more.
bool isRootCoordinate(int value)
{
    return value >= std::numeric_limits<std::int16_t>::min() &&
           value <= std::numeric_limits<std::int16_t>::max();
}

} // namespace

std::optional<RequestError> PlaceRequests::readPlace(const RequestedPlace& place,
                                                     DockState& state) const
{
    if (place.width <= 0 || place.height <= 0) {
        return invalid(QStringLiteral("the rectangle has no area"));
    }
    const std::array numbers{place.x, place.y, place.width, place.height};
    const QRect rect = std::ranges::all_of(numbers, isRootCoordinate)
                           ? QRect(place.x, place.y, place.width, place.height)
                           : QRect();
    const auto screens = m.space.screens();
    if (std::ranges::none_of(screens,
                             [&rect](const QRect& screen) { return screen.intersects(rect); })) {
        return invalid(QStringLiteral("the rectangle is on no monitor"));
    }
    const std::optional<DockEdge> edge = edgeNamed(place.edge);
    if (!edge) {
        return invalid(
            QStringLiteral("the edge is none of \"bottom\", \"top\", \"left\" and \"right\""));
    }
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
    if (auto error = readPlace(place, *state)) {
        return error;
    }
    const QLatin1String suffix(".desktop");
    const QString id = entryId.endsWith(suffix) ? entryId.chopped(suffix.size()) : entryId;
    if (id.isEmpty()) {
        return invalid(QStringLiteral("the desktop-entry id is empty"));
    }
    DockItem& item = state->items.front();
    if (const DesktopEntryPtr entry = m.entries.byId(id)) {
        item.desktopFile = entry->path;
        return m.registry.applicationForDesktopFile(entry->path)
                   ? show(state)
                   : nothingToShow(QStringLiteral("the application has no window"));
    }
    // One without a desktop entry goes by the class of its windows.
    for (Application& application : m.registry.applications()) {
        if (application.running.bundleIdentifier == id && !application.windows.empty()) {
            item.windows = std::move(application.windows);
            return show(state);
        }
    }
    return invalid(QStringLiteral("there is no such desktop entry, and no such program runs"));
}

std::optional<RequestError> PlaceRequests::showForWindows(const std::vector<std::uint32_t>& windows,
                                                          const RequestedPlace& place)
{
    const auto state = std::make_shared<DockState>();
    if (auto error = readPlace(place, *state)) {
        return error;
    }
    DockItem& item = state->items.front();
    item.areChosen = true;
    for (const xcb_window_t id : windows) {
        const x11::TrackedWindowPtr window = m.tracker.window(id);
        if (!window || !isApplicationWindow(*window)) {
            return invalid(QStringLiteral("0x%1 is no window of an application").arg(id, 0, 16));
        }
        if (std::ranges::find(item.windows, id) == item.windows.end()) {
            item.windows.push_back(id);
        }
    }
    if (item.windows.empty()) {
        return invalid(QStringLiteral("there are no windows"));
    }
    if (item.windows.size() > maxWindows) {
        return invalid(QStringLiteral("there are more than %1 windows").arg(maxWindows));
    }
    return show(state);
}

std::optional<RequestError> PlaceRequests::show(const std::shared_ptr<DockState>& state)
{
    if (m_host == nullptr) {
        return RequestError{Kind::Disabled, QStringLiteral("Lumbrix is just starting or ending")};
    }
    const DockItemId id = state->items.front().id = newDockItemId();
    const QRect place = state->items.front().rect;
    m.docks.addRequested(state);
    const Answer answer = m_host->show(X11Element::dockItem(id));
    if (answer != Answer::Accepted) {
        m.docks.removeRequested(id);
        return answer == Answer::Disabled
                   ? RequestError{Kind::Disabled,
                                  QStringLiteral("previews are turned off in the preferences")}
                   : nothingToShow(QStringLiteral("no window that the user's settings let in"));
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
    if (m_current != 0 && m_host != nullptr) {
        m_host->hide(X11Element::dockItem(m_current));
    }
}

void PlaceRequests::abandon()
{
    if (m_current != 0 && m_host != nullptr) {
        m_host->abandon(X11Element::dockItem(m_current));
    }
}

void PlaceRequests::rowEnded(const ElementRef& reference)
{
    const X11Element* element = X11Element::from(reference);
    if (element == nullptr || element->kind() != X11Element::Kind::DockItem) {
        return;
    }
    m.docks.removeRequested(element->dockItemId());
    if (element->dockItemId() != m_current) {
        return;
    }
    m_current = 0;
    {
        const std::lock_guard lock(m_mutex);
        m_watched = 0;
    }
    if (m_ended) {
        m_ended();
    }
}

void PlaceRequests::pointerMoved(QPoint point, xcb_window_t)
{
    DockItemId left = 0;
    {
        const std::lock_guard lock(m_mutex);
        const bool isOn = m_watched != 0 && m_place.contains(point);
        if (std::exchange(m_isPointerOn, isOn) && !isOn) {
            left = m_watched;
        }
    }
    if (left != 0) {
        m.runLoop.performOnMainThread(m_guard.ifAlive([this, left] { pointerLeft(left); }), false);
    }
}

void PlaceRequests::pointerLeft(DockItemId id)
{
    if (id == m_current && m_host != nullptr) {
        m_host->mouseLeft(X11Element::dockItem(id));
    }
}

} // namespace lumbrix::platform
