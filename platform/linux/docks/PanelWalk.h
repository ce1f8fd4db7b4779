// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Walks a program's accessibility tree once, to find the buttons on its panels.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

#include "platform/MainThreadGuard.h"
#include "platform/linux/docks/AccessibleTree.h"
#include "platform/linux/docks/DockItem.h"

namespace lumbrix::platform
{

/// Roles by element; an element never changes its role.
using AccessibleRoles = std::map<AccessibleRef, std::uint32_t>;

/// Limits the depth, the number of elements and the number of pending calls; the caller limits the
/// time, by destroying it. Main thread.
class PanelWalk
{
public:
    struct Result {
        bool isAnswered = false;                                 ///< it reported its windows
        std::map<xcb_window_t, std::vector<PanelButton>> panels; ///< also those without buttons
        AccessibleRoles roles;                                   ///< for the next walk
    };
    using Done = std::function<void(Result)>;

    /// `panels` are the program's dock windows, `roles` what an earlier walk learned. The tree
    /// outlives it.
    PanelWalk(AccessibleTree& tree, const QString& application, std::vector<DockWindow> panels,
              AccessibleRoles roles, Done done);
    PanelWalk(const PanelWalk&) = delete;
    PanelWalk& operator=(const PanelWalk&) = delete;

    /// `done` is called once, from the event loop, and may destroy this object.
    void start();

private:
    using Refs = AccessibleTree::Refs;
    template <class Value> using Then = AccessibleTree::Then<Value>;

    /// A window of the program that is one of its panels.
    struct Panel {
        xcb_window_t id = XCB_NONE;
        QPoint corner; ///< as the program reports it
        int scale = 1; ///< display pixels per pixel of the program
    };
    struct List {
        AccessibleRef ref;
        std::size_t size = 0;
        int depth = 0;
    };

    void ask(std::function<void()> question);
    void pump();
    void answered();
    /// For what an answer to a question that was pumped leads to.
    template <class Value> Then<Value> counted(Then<Value> then);
    void askForChildren(const AccessibleRef& element, std::size_t maximum,
                        Then<std::optional<Refs>> then);
    /// `then` is left out for what is not shown.
    void askForExtents(const AccessibleRef& element, Then<QRect> then);
    void lookAtWindow(const AccessibleRef& window);
    void lookInto(const AccessibleRef& container, const Panel& panel, int depth);
    void lookAt(const AccessibleRef& element, std::uint32_t role, const List& list,
                const Panel& panel);
    void readButton(const AccessibleRef& element, const List& list, const Panel& panel);
    std::optional<Panel> panelAt(const QRect& extents) const;

    AccessibleTree& m_tree;
    const AccessibleRef m_root;
    const std::vector<DockWindow> m_panels;
    const AccessibleRoles m_knownRoles;
    Done m_done;
    Result m_result;
    std::deque<std::function<void()>> m_questions;
    int m_underWay = 0;
    std::set<AccessibleRef> m_seen;
    const MainThreadGuard m_guard;
};

} // namespace lumbrix::platform
