// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/X11WindowTracker.h"

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/WindowCommands.h"
#include "platform/linux/x11/WindowFetch.h"

#include <algorithm>
#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

constexpr std::uint32_t sourcePager = 2; // acts for the user: no focus-theft rules
constexpr std::uint32_t iconicState = 3;

} // namespace

X11WindowTracker::X11WindowTracker(RunLoop& runLoop, const Connection& connection,
                                   const Atoms& atoms, WindowCommands& commands,
                                   Listeners& listeners)
    : m_runLoop(runLoop), m_connection(connection), m_atoms(atoms), m_commands(commands),
      m_listeners(listeners), m_pinger(connection, atoms)
{
}

void X11WindowTracker::fetchInitial()
{
    // The substructure events report frames and popups, and bring the answers to pings.
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE |
                                 XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY |
                                 XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK,
                                 &events);
    updateSet();
    fetchDirty();
    updateOrder();
    const StatePtr state = makeState();
    const std::lock_guard lock(m_mutex);
    m_state = state;
}

X11WindowTracker::StatePtr X11WindowTracker::state() const
{
    const std::lock_guard lock(m_mutex);
    return m_state;
}

TrackedWindowPtr X11WindowTracker::window(xcb_window_t id) const { return state()->window(id); }

std::vector<TrackedWindowPtr> X11WindowTracker::windows() const { return state()->windows; }

std::vector<TrackedWindowPtr> X11WindowTracker::windows(std::span<const xcb_window_t> ids) const
{
    const StatePtr current = state();
    std::vector<std::size_t> places;
    for (const xcb_window_t id : ids)
        if (const auto it = current->places.find(id); it != current->places.end())
            places.push_back(it->second);
    std::ranges::sort(places);
    std::vector<TrackedWindowPtr> found;
    found.reserve(places.size());
    for (const std::size_t place : places)
        found.push_back(current->windows[place]);
    return found;
}

xcb_window_t X11WindowTracker::activeWindow() const { return state()->active; }
int X11WindowTracker::currentDesktop() const { return state()->currentDesktop; }
int X11WindowTracker::desktopCount() const { return state()->desktopCount; }

void X11WindowTracker::activate(xcb_window_t id)
{
    m_commands.post([this, id](xcb_timestamp_t now) {
        const WindowRecord* record = recordOf(id);
        if (!record || !record->published)
            return;
        const int desktop = record->desktop;
        if (desktop >= 0 && desktop != m_set.currentDesktop)
            m_commands.tellWindowManager(m_connection.root(), AtomName::NetCurrentDesktop,
                                         {static_cast<std::uint32_t>(desktop), now});
        if (record->published->isIconic)
            xcb_map_window(m_connection.get(), id);
        m_commands.tellWindowManager(id, AtomName::NetActiveWindow, {sourcePager, now, XCB_NONE});
    });
}

void X11WindowTracker::close(xcb_window_t id)
{
    m_commands.post([this, id](xcb_timestamp_t now) {
        if (recordOf(id))
            m_commands.tellWindowManager(id, AtomName::NetCloseWindow, {now, sourcePager});
    });
}

void X11WindowTracker::iconify(xcb_window_t id)
{
    m_commands.post([this, id](xcb_timestamp_t) {
        if (recordOf(id))
            m_commands.tellWindowManager(id, AtomName::WmChangeState, {iconicState});
    });
}

void X11WindowTracker::deiconify(xcb_window_t id)
{
    m_commands.post([this, id](xcb_timestamp_t) {
        const WindowRecord* record = recordOf(id);
        // Mapping an iconic window is how ICCCM asks for its return.
        if (record && record->published && record->published->isIconic)
            xcb_map_window(m_connection.get(), id);
    });
}

void X11WindowTracker::ping(xcb_window_t id)
{
    m_commands.post([this, id](xcb_timestamp_t now) {
        const WindowRecord* record = recordOf(id);
        if (record && record->canPing)
            m_pinger.ping(id, now, m_runLoop.now());
    });
}

WindowRecord* X11WindowTracker::recordOf(xcb_window_t id)
{
    const auto it = m_records.find(id);
    return it == m_records.end() ? nullptr : it->second.get();
}

WindowRecord* X11WindowTracker::recordOfFrame(xcb_window_t frame)
{
    const auto it = m_frames.find(frame);
    return it == m_frames.end() ? nullptr : recordOf(it->second);
}

void X11WindowTracker::handleEvent(const xcb_generic_event_t& event)
{
    switch (event.response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY:
        propertyChanged(reinterpret_cast<const xcb_property_notify_event_t&>(event));
        break;
    case XCB_CONFIGURE_NOTIFY:
        configured(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
        break;
    case XCB_MAP_NOTIFY:
        mappingChanged(reinterpret_cast<const xcb_map_notify_event_t&>(event).window, true);
        break;
    case XCB_UNMAP_NOTIFY:
        mappingChanged(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window, false);
        break;
    case XCB_REPARENT_NOTIFY:
        markGeometry(reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window);
        break;
    case XCB_DESTROY_NOTIFY:
        windowDestroyed(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
        break;
    case XCB_CLIENT_MESSAGE:
        if (const auto window = m_pinger.answerIn(event))
            setResponding(*window, true);
        break;
    default:
        break;
    }
}

void X11WindowTracker::setDecorationsComposed(bool composed)
{
    if (m_composesDecorations == composed)
        return;
    m_composesDecorations = composed;
    // In a round of its own: in this one the tracker has had its turn, perhaps.
    m_commands.post([this](xcb_timestamp_t) { m_isChanged = true; });
}

void X11WindowTracker::setResponding(xcb_window_t answerer, bool isResponding)
{
    // A client answers for all its windows or for none.
    const std::uint32_t client = m_connection.clientOf(answerer);
    for (const auto& [id, record] : m_records) {
        if (record->canPing && record->isResponding != isResponding &&
            m_connection.clientOf(id) == client) {
            record->isResponding = isResponding;
            m_isChanged = true;
        }
    }
}

void X11WindowTracker::propertyChanged(const xcb_property_notify_event_t& event)
{
    if (event.window == m_connection.root()) {
        m_isSetDirty = m_isSetDirty || ManagedSet::isInteresting(event.atom, m_atoms);
        return;
    }
    WindowRecord* record = recordOf(event.window);
    if (!record)
        return;
    const std::uint32_t bits =
        dirtyBitOf(event.atom, m_atoms) & (record->isDock() ? ~0U : ~dockBits());
    if (bits)
        mark(*record, bits);
    if (event.atom == m_atoms[AtomName::NetWmIconGeometry]) {
        ++record->iconGeometrySerial;
        record->iconGeometryTime = static_cast<std::int64_t>(m_runLoop.now() * 1000);
    } else if (event.atom == m_atoms[AtomName::NetFrameExtents]) {
        mark(*record, geometryBit);
    }
}

void X11WindowTracker::mark(WindowRecord& record, std::uint32_t bits)
{
    record.dirty |= bits;
    m_isAnyDirty = true;
}

void X11WindowTracker::configured(const xcb_configure_notify_event_t& event)
{
    if (WindowRecord* record = recordOfFrame(event.window)) {
        const int border = event.border_width;
        const QRect rect(event.x, event.y, event.width + 2 * border, event.height + 2 * border);
        m_isOrderDirty = true;
        if (rect.size() != record->frameRect.size())
            mark(*record, geometryBit);
        m_isChanged = m_isChanged || rect != record->frameRect;
        record->frameRect = rect;
    } else {
        markGeometry(event.window); // a client moved or resized inside its frame
    }
}

void X11WindowTracker::mappingChanged(xcb_window_t window, bool isMapped)
{
    WindowRecord* record = recordOfFrame(window);
    if (record && record->isMapped != isMapped) {
        record->isMapped = isMapped;
        m_isChanged = true;
        m_isOrderDirty = true;
    }
}

void X11WindowTracker::markGeometry(xcb_window_t window)
{
    if (WindowRecord* record = recordOf(window))
        mark(*record, geometryBit);
}

void X11WindowTracker::windowDestroyed(xcb_window_t window)
{
    if (WindowRecord* record = recordOf(window)) {
        record->isGone = true;
        m_isChanged = true;
    } else if (WindowRecord* framed = recordOfFrame(window)) {
        mark(*framed, geometryBit);
    }
}

void X11WindowTracker::eventsHandled()
{
    for (const xcb_window_t window : m_pinger.takeLate(m_runLoop.now()))
        setResponding(window, false);
    if (m_isSetDirty)
        updateSet();
    fetchDirty();
    const bool needsTree = m_isOrderDirty && !m_set.isStackingComplete();
    if (!m_isChanged && !needsTree)
        return;
    updateOrder();
    publish(makeState());
}

void X11WindowTracker::updateSet()
{
    m_set.fetch(m_connection, m_atoms);
    m_isSetDirty = false;
    m_isOrderDirty = true;
    m_isAnyDirty = true;
    m_isChanged = true;

    std::unordered_map<xcb_window_t, std::unique_ptr<WindowRecord>> records;
    for (const xcb_window_t id : m_set.clients) {
        auto it = m_records.find(id);
        // A window that is gone but listed again may be another window with the same id.
        if (it != m_records.end() && !it->second->isGone) {
            records[id] = std::move(it->second);
            continue;
        }
        auto record = std::make_unique<WindowRecord>();
        record->id = id;
        // Before the properties are read, so that no change is missed.
        const std::uint32_t events =
            XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection.get(), id, XCB_CW_EVENT_MASK, &events);
        records[id] = std::move(record);
    }
    for (const auto& [id, record] : m_records) {
        if (record) { // no longer managed
            const std::uint32_t none = XCB_EVENT_MASK_NO_EVENT;
            xcb_change_window_attributes(m_connection.get(), id, XCB_CW_EVENT_MASK, &none);
            m_pinger.forget(id);
        }
    }
    m_records = std::move(records);
}

void X11WindowTracker::fetchDirty()
{
    std::vector<WindowRecord*> dirty;
    if (std::exchange(m_isAnyDirty, false))
        for (const auto& [id, record] : m_records)
            if (record->dirty && !record->isGone)
                dirty.push_back(record.get());
    if (!dirty.empty()) {
        fetchWindows(m_connection, m_atoms, dirty);
        m_isChanged = true;
    }
    if (!m_isChanged)
        return;
    m_frames.clear();
    for (const auto& [id, record] : m_records)
        if (!record->isGone && record->frame)
            m_frames[record->frame] = id;
}

void X11WindowTracker::updateOrder()
{
    m_isOrderDirty = false;
    if (m_set.isStackingComplete()) {
        m_order = topmostFirst(m_set.clients, m_set.stacking);
        return;
    }
    std::vector<xcb_window_t> clientsOfTree;
    for (const xcb_window_t child : rootChildren(m_connection)) {
        const auto it = m_frames.find(child);
        if (it != m_frames.end())
            clientsOfTree.push_back(it->second);
    }
    m_order = topmostFirst(m_set.clients, clientsOfTree);
}

X11WindowTracker::StatePtr X11WindowTracker::makeState()
{
    const ManagerTraits manager{m_set.hasHiddenState, m_set.currentDesktop, m_composesDecorations};
    auto next = std::make_shared<State>();
    next->active = m_set.active;
    next->currentDesktop = m_set.currentDesktop;
    next->desktopCount = m_set.desktopCount;
    for (const xcb_window_t id : m_order) {
        WindowRecord* record = recordOf(id);
        // Without a frame its position is not known: it is just being reparented.
        if (!record || record->isGone || record->frame == XCB_NONE)
            continue;
        TrackedWindow snapshot = snapshotOf(*record, manager);
        // A window manager may shrink a window towards its button while minimising it. The position
        // to keep is the one before that: there it will be shown again, and its last picture shows
        // it there.
        if (const TrackedWindowPtr& last = record->published;
            snapshot.isIconic && last && last->frame == snapshot.frame) {
            snapshot.bounds = last->bounds;
            snapshot.decorations = last->decorations;
            snapshot.frameBounds = last->frameBounds;
        }
        if (!record->published || *record->published != snapshot)
            record->published = std::make_shared<const TrackedWindow>(std::move(snapshot));
        next->places[id] = next->windows.size();
        next->windows.push_back(record->published);
    }
    m_isChanged = false;
    return next;
}

void X11WindowTracker::publish(const StatePtr& next)
{
    StatePtr previous;
    {
        const std::lock_guard lock(m_mutex);
        previous = std::exchange(m_state, next);
    }
    for (const TrackedWindowPtr& window : previous->windows)
        if (!next->places.contains(window->id))
            m_listeners.notify([&](WindowListener& listener) { listener.windowRemoved(window); });
    for (const TrackedWindowPtr& window : next->windows) {
        const TrackedWindowPtr before = previous->window(window->id);
        if (!before)
            m_listeners.notify([&](WindowListener& listener) { listener.windowAdded(window); });
        else if (before != window)
            m_listeners.notify(
                [&](WindowListener& listener) { listener.windowChanged(before, window); });
    }
    if (previous->active != next->active)
        m_listeners.notify(
            [&](WindowListener& listener) { listener.activeWindowChanged(next->active); });
    if (previous->currentDesktop != next->currentDesktop)
        m_listeners.notify([&](WindowListener& listener) {
            listener.currentDesktopChanged(next->currentDesktop);
        });
}

} // namespace lumbrix::platform::x11
