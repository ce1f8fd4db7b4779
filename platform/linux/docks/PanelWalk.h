// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// One look through what a program shows, for the buttons on its panels.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "platform/MainThreadGuard.h"
#include "platform/linux/docks/AccessibleBus.h"
#include "platform/linux/docks/DockItem.h"

namespace lumbrix::platform
{

/// Roles of elements by what they are; an element keeps its role.
using AccessibleRoles = std::map<AccessibleRef, std::uint32_t>;

/// Bounded in depth, in the number of elements and in the calls that are under way at a time;
/// the caller bounds its time, by destroying it. Main thread.
class PanelWalk
{
public:
    struct Result {
        bool isAnswered = false;                                 ///< the program told its windows
        std::map<xcb_window_t, std::vector<PanelButton>> panels; ///< also those without buttons
        AccessibleRoles roles;                                   ///< for the next walk
    };
    using Done = std::function<void(Result)>;

    /// `panels` are the program's dock windows, `roles` what an earlier walk learned. The bus
    /// outlives it.
    PanelWalk(AccessibleBus& bus, const QString& application, std::vector<DockWindow> panels,
              AccessibleRoles roles, Done done);
    PanelWalk(const PanelWalk&) = delete;
    PanelWalk& operator=(const PanelWalk&) = delete;

    /// `done` is called once, from the event loop, and may destroy the walk.
    void start();

private:
    /// A window of the program that is one of its panels.
    struct Panel {
        xcb_window_t id = XCB_NONE;
        QPoint corner; ///< as the program tells it
        int scale = 1; ///< pixels to one of the program's
    };
    struct List {
        AccessibleRef ref;
        std::size_t size = 0;
        int depth = 0;
    };
    struct Question {
        QDBusMessage message;
        AccessibleBus::Answer answer;
    };

    void ask(const QDBusMessage& message, AccessibleBus::Answer answer);
    void pump();
    void lookAtWindow(const AccessibleRef& window);
    void lookInto(const AccessibleRef& container, const Panel& panel, int depth);
    void lookAt(const AccessibleRef& element, std::uint32_t role, const List& list,
                const Panel& panel);
    void readButton(const AccessibleRef& element, const List& list, const Panel& panel);
    std::optional<Panel> panelAt(const QRect& extents) const;

    AccessibleBus& m_bus;
    const AccessibleRef m_root;
    const std::vector<DockWindow> m_panels;
    const AccessibleRoles m_knownRoles;
    Done m_done;
    Result m_result;
    std::deque<Question> m_questions;
    int m_underWay = 0;
    std::set<AccessibleRef> m_seen;
    const MainThreadGuard m_guard;
};

} // namespace lumbrix::platform
