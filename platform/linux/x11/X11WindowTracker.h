// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The managed windows, followed by property and structure events.
#pragma once

#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "platform/linux/x11/EventThread.h"
#include "platform/linux/x11/Listeners.h"
#include "platform/linux/x11/ManagedSet.h"
#include "platform/linux/x11/Pinger.h"
#include "platform/linux/x11/WindowProperties.h"
#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform::x11
{

class Connection;
class WindowCommands;

/// Readers on any thread get the last published state, under a lock that is held only for a copy.
/// Changes are published only after the event thread has queried all of their data.
class X11WindowTracker final : public WindowTracker, public EventHandler
{
public:
    X11WindowTracker(RunLoop& runLoop, const Connection& connection, const Atoms& atoms,
                     WindowCommands& commands, Listeners& listeners);

    /// Selects the root's events and publishes the existing windows, without calling listeners.
    /// Must be called before the event thread starts.
    void fetchInitial();

    void addListener(WindowListener* listener) override { m_listeners.add(listener); }
    TrackedWindowPtr window(xcb_window_t id) const override;
    std::vector<TrackedWindowPtr> windows() const override;
    std::vector<TrackedWindowPtr> windows(std::span<const xcb_window_t> ids) const override;
    xcb_window_t activeWindow() const override;
    int currentDesktop() const override;
    int desktopCount() const override;

    void activate(xcb_window_t id) override;
    void close(xcb_window_t id) override;
    void iconify(xcb_window_t id) override;
    void deiconify(xcb_window_t id) override;
    void ping(xcb_window_t id) override;

    /// Whether a child of the root is or contains a managed window. Event thread.
    bool isFrame(xcb_window_t window) const { return m_frames.contains(window); }

    /// Whether decorations are in no window's pixmap; known of all windows soon. Event thread.
    void setDecorationsComposed(bool composed);

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsHandled() override;
    std::optional<Seconds> deadline() const override { return m_pinger.deadline(); }

private:
    struct State {
        std::vector<TrackedWindowPtr> windows;                ///< topmost first
        std::unordered_map<xcb_window_t, std::size_t> places; ///< in the list, by id
        xcb_window_t active = XCB_NONE;
        int currentDesktop = 0;
        int desktopCount = 1;

        TrackedWindowPtr window(xcb_window_t id) const
        {
            const auto it = places.find(id);
            return it == places.end() ? nullptr : windows[it->second];
        }
    };
    using StatePtr = std::shared_ptr<const State>;

    StatePtr state() const;
    WindowRecord* recordOf(xcb_window_t id);
    WindowRecord* recordOfFrame(xcb_window_t frame);

    void setResponding(xcb_window_t answerer, bool isResponding);
    void propertyChanged(const xcb_property_notify_event_t& event);
    void configured(const xcb_configure_notify_event_t& event);
    void mappingChanged(xcb_window_t window, bool isMapped);
    /// These have to be fetched again.
    void mark(WindowRecord& record, std::uint32_t bits);
    void markGeometry(xcb_window_t window);
    void windowDestroyed(xcb_window_t window);

    void updateSet();
    void fetchDirty();
    void updateOrder();
    StatePtr makeState();
    void publish(const StatePtr& state);

    RunLoop& m_runLoop;
    const Connection& m_connection;
    const Atoms& m_atoms;
    WindowCommands& m_commands;
    Listeners& m_listeners;

    // Event thread.
    Pinger m_pinger;
    ManagedSet m_set;
    bool m_isSetDirty = true;
    bool m_isAnyDirty = true; ///< of the records
    bool m_isOrderDirty = true;
    bool m_isChanged = false;
    bool m_composesDecorations = false; ///< the window manager does
    std::unordered_map<xcb_window_t, std::unique_ptr<WindowRecord>> m_records;
    std::unordered_map<xcb_window_t, xcb_window_t> m_frames; ///< frame to client
    std::vector<xcb_window_t> m_order;                       ///< topmost first

    mutable std::mutex m_mutex;
    StatePtr m_state = std::make_shared<const State>(); // guarded by m_mutex
};

} // namespace lumbrix::platform::x11
