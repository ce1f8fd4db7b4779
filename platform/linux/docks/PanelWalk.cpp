// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PanelWalk.h"

#include <algorithm>
#include <cstdlib>

#include "platform/linux/docks/AccessibleQuestions.h"
#include "platform/linux/docks/IconGeometry.h"

namespace lumbrix::platform
{

namespace
{

constexpr int maximumUnderWay = 32;
constexpr int maximumDepth = 12;
constexpr std::size_t maximumWindows = 64;
constexpr std::size_t maximumChildren = 300;
constexpr std::size_t maximumElements = 1500;
constexpr int maximumScale = 4;

// With the protocol's numbers.
constexpr std::uint32_t checkBox = 7;
constexpr std::uint32_t pushButton = 43;
constexpr std::uint32_t radioButton = 44;
constexpr std::uint32_t toggleButton = 62;

// Window buttons are toggle buttons. A launcher is a push button, and may have an application's
// name.
bool isWindowButton(std::uint32_t role)
{
    return role == toggleButton || role == checkBox || role == radioButton;
}

} // namespace

PanelWalk::PanelWalk(AccessibleTree& tree, const QString& application,
                     std::vector<DockWindow> panels, AccessibleRoles roles, Done done)
    : m_tree(tree), m_root(accessibleRoot(application)), m_panels(std::move(panels)),
      m_knownRoles(std::move(roles)), m_done(std::move(done))
{
}

void PanelWalk::start()
{
    askForChildren(m_root, maximumWindows, [this](const std::optional<Refs>& windows) {
        m_result.isAnswered = windows.has_value();
        for (const AccessibleRef& window : windows.value_or(Refs()))
            lookAtWindow(window);
    });
}

// A program with much to tell is asked little by little: it has other things to do.
void PanelWalk::ask(std::function<void()> question)
{
    m_questions.push_back(std::move(question));
    pump();
}

void PanelWalk::pump()
{
    while (m_underWay < maximumUnderWay && !m_questions.empty()) {
        const auto next = std::move(m_questions.front());
        m_questions.pop_front();
        ++m_underWay;
        next();
    }
}

void PanelWalk::answered()
{
    --m_underWay;
    pump();
    if (m_underWay == 0) {
        const Done done = std::move(m_done);
        done(std::move(m_result));
    }
}

template <class Value> PanelWalk::Then<Value> PanelWalk::counted(Then<Value> then)
{
    return m_guard.ifAlive([this, then = std::move(then)](const Value& answer) {
        then(answer);
        answered();
    });
}

void PanelWalk::askForChildren(const AccessibleRef& element, std::size_t maximum,
                               Then<std::optional<Refs>> then)
{
    ask([this, element, maximum, then = std::move(then)] {
        m_tree.childrenOf(element, maximum, counted(then));
    });
}

void PanelWalk::askForExtents(const AccessibleRef& element, Then<QRect> then)
{
    ask([this, element, then = std::move(then)] {
        m_tree.extentsOf(element,
                         counted<std::optional<QRect>>([then](const std::optional<QRect>& extents) {
                             if (extents)
                                 then(*extents);
                         }));
    });
}

// Its other windows (preferences, menus) have buttons, too, but are no panels.
void PanelWalk::lookAtWindow(const AccessibleRef& window)
{
    askForExtents(window, [this, window](const QRect& extents) {
        if (const std::optional<Panel> panel = panelAt(extents)) {
            m_result.panels[panel->id];
            lookInto(window, *panel, 0);
        }
    });
}

// A program may use larger pixels than the display's. Panels of the same size are distinguished by
// their position.
std::optional<PanelWalk::Panel> PanelWalk::panelAt(const QRect& extents) const
{
    std::optional<Panel> best;
    int bestDistance = 0;
    for (const DockWindow& window : m_panels) {
        for (int scale = 1; scale <= maximumScale; ++scale) {
            const QSize size = extents.size() * scale - window.bounds.size();
            if (std::abs(size.width()) >= 2 * scale || std::abs(size.height()) >= 2 * scale)
                continue;
            const int distance =
                (extents.topLeft() * scale - window.bounds.topLeft()).manhattanLength();
            if (!best || distance < bestDistance) {
                best = Panel{.id = window.id, .corner = extents.topLeft(), .scale = scale};
                bestDistance = distance;
            }
        }
    }
    return best;
}

void PanelWalk::lookInto(const AccessibleRef& container, const Panel& panel, int depth)
{
    if (depth >= maximumDepth)
        return;
    const auto look = [this, container, panel, depth](const std::optional<Refs>& told) {
        const Refs children = told.value_or(Refs());
        const List list{.ref = container, .size = children.size(), .depth = depth};
        for (const AccessibleRef& child : children) {
            if (m_seen.size() >= maximumElements || !m_seen.insert(child).second)
                continue;
            const auto known = m_knownRoles.find(child);
            if (known != m_knownRoles.end()) {
                lookAt(child, known->second, list, panel);
                continue;
            }
            ask([this, child, list, panel] {
                m_tree.roleOf(child, counted<std::optional<std::uint32_t>>(
                                         [this, child, list, panel](const auto& role) {
                                             if (role)
                                                 lookAt(child, *role, list, panel);
                                         }));
            });
        }
    };
    askForChildren(container, maximumChildren, look);
}

void PanelWalk::lookAt(const AccessibleRef& element, std::uint32_t role, const List& list,
                       const Panel& panel)
{
    m_result.roles[element] = role;
    if (isWindowButton(role))
        readButton(element, list, panel);
    else if (role != pushButton)
        lookInto(element, panel, list.depth + 1);
}

void PanelWalk::readButton(const AccessibleRef& element, const List& list, const Panel& panel)
{
    askForExtents(element, [this, element, list, panel](const QRect& extents) {
        if (!isIconPlace(extents))
            return; // its name does not matter either
        const QRect place((extents.topLeft() - panel.corner) * panel.scale,
                          extents.size() * panel.scale);
        const auto take = [this, element, list, panel, place](const std::optional<QString>& name) {
            if (!name)
                return;
            m_result.panels[panel.id].push_back({.ref = element,
                                                 .list = list.ref,
                                                 .name = *name,
                                                 .place = place,
                                                 .siblings = list.size});
        };
        ask([this, element, take] {
            m_tree.nameOf(element, counted<std::optional<QString>>(take));
        });
    });
}

} // namespace lumbrix::platform
