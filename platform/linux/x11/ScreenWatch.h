// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Follows the screens, which of them is the main one, and whether a compositor runs.
#pragma once

#include <QtCore/QRect>

#include <atomic>
#include <mutex>
#include <vector>

#include "platform/linux/x11/Atoms.h"
#include "platform/linux/x11/EventThread.h"
#include "platform/linux/x11/Listeners.h"

namespace lumbrix::platform::x11
{

class Connection;
class PointSpace;
class WindowCommands;

class ScreenWatch final : public EventHandler
{
public:
    /// Fills the point space. Before the event thread starts.
    ScreenWatch(const Connection& connection, const Atoms& atoms, WindowCommands& commands,
                const Listeners& listeners, PointSpace& points);

    /// The main screen is the one that holds most of the dock, given in root pixels; an empty
    /// rectangle means the primary screen. Any thread; the point space has it on return.
    void setMainScreenHint(const QRect& dock);
    /// Any thread.
    bool isCompositorRunning() const { return m_isCompositorRunning; }
    /// Since the construction. Any thread.
    int compositorsBegun() const { return m_compositorsBegun; }

    void handleEvent(const xcb_generic_event_t& event) override;
    void eventsHandled() override;

private:
    std::vector<QRect> fetchMonitors() const;
    bool isScreenEvent(const xcb_generic_event_t& event) const;
    /// Puts the main screen first; true when that changed something.
    bool arrange();

    const Connection& m_connection;
    const xcb_atom_t m_compositorSelection;
    WindowCommands& m_commands;
    const Listeners& m_listeners;
    PointSpace& m_points;
    bool m_areScreensDirty = false; ///< event thread
    std::atomic<bool> m_isCompositorRunning = false;
    std::atomic<int> m_compositorsBegun = 0;

    std::mutex m_mutex;
    QRect m_dock;                  // guarded by m_mutex
    std::vector<QRect> m_monitors; // guarded by m_mutex; the primary one first
};

} // namespace lumbrix::platform::x11
