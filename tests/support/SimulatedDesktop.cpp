// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/support/SimulatedDesktop.h"

#include <algorithm>

namespace lumbrix::test
{

using Kind = SimulatedElement::Kind;
using ItemKind = SimulatedDockItem::Kind;

SimulatedDesktop::SimulatedDesktop(platform::RunLoop& runLoop) : m_state(runLoop)
{
    startDock();
    addDockItem({QString(), ItemKind::Separator});
    addDockItem({u"Trash"_s, ItemKind::Trash});
    m_state.ownPid = m_state.launch({u"Lumbrix"_s, u"org.example.Lumbrix"_s, 0, false});
}

platform::Desktop SimulatedDesktop::ports(platform::Accessibility& accessibility,
                                          platform::WindowServer& windowServer)
{
    return {m_state.runLoop,     accessibility,     windowServer,  m_inputState,     m_workspace,
            m_userDefaults,      m_dockPreferences, m_eventTaps,   m_keyboardLayout, m_loginItems,
            m_applicationBundle, m_statusBar,       m_appleEvents, m_calendarStore,  m_wallClock,
            m_previewRequests,   m_privacy,         m_look};
}

SimulatedApplication SimulatedDesktop::application(Pid pid)
{
    const auto state = m_state.locked();
    const SimulatedApplication* found = state->application(pid);
    return found ? *found : SimulatedApplication{};
}

std::optional<SimulatedWindow> SimulatedDesktop::window(WindowID window)
{
    const auto state = m_state.locked();
    const SimulatedWindow* found = state->window(window);
    return found ? std::optional(*found) : std::nullopt;
}

platform::ElementRef SimulatedDesktop::windowElement(WindowID window)
{
    const auto state = m_state.locked();
    return makeElement(Kind::Window, state->window(window)->pid, window);
}

void SimulatedDesktop::setDockEdge(std::optional<platform::DockEdge> edge)
{
    const auto state = m_state.locked();
    state->dockEdge = edge;
    state->layOutDock();
}

void SimulatedDesktop::setDockFlags(std::optional<int> magnification, std::optional<int> autohide)
{
    const auto state = m_state.locked();
    state->dockMagnification = magnification;
    state->dockAutohide = autohide;
}

void SimulatedDesktop::killDock()
{
    const auto state = m_state.locked();
    const Pid pid = std::exchange(state->dockPid, 0);
    state->quit(pid);
    state->switcher.reset();
    if (std::exchange(state->hoveredItem, 0) != 0)
        state->notify(pid, makeElement(Kind::DockList, pid), u"AXSelectedChildrenChanged"_s);
}

Pid SimulatedDesktop::startDock()
{
    const auto state = m_state.locked();
    state->dockPid = state->launch({u"Dock"_s, u"com.apple.dock"_s, 0, false});
    for (SimulatedDockItem& item : state->dockItems)
        item.id = state->nextDockItem++;
    state->hoveredItem = 0;
    state->updateHover();
    return state->dockPid;
}

platform::ElementRef SimulatedDesktop::dockItem(const QString& title)
{
    const auto state = m_state.locked();
    for (const SimulatedDockItem& item : state->dockItems)
        if (item.title == title)
            return makeElement(Kind::DockItem, state->dockPid, item.id);
    return nullptr;
}

QRectF SimulatedDesktop::dockItemFrame(const QString& title)
{
    const auto state = m_state.locked();
    for (const SimulatedDockItem& item : state->dockItems)
        if (item.title == title)
            return item.frame;
    return QRectF();
}

void SimulatedDesktop::openDockMenu()
{
    const auto state = m_state.locked();
    state->notify(state->dockPid, makeElement(Kind::DockList, state->dockPid), u"AXMenuOpened"_s);
}

void SimulatedDesktop::setSystemUIMode(std::uint32_t mode)
{
    const auto state = m_state.locked();
    if (std::exchange(state->systemUIMode, mode) != mode)
        state->notify(platform::WorkspaceNotification::SystemUIModeDidChange, 0);
}

void SimulatedDesktop::openSwitcher(std::vector<SimulatedSwitcherEntry> entries,
                                    std::size_t selection)
{
    const auto state = m_state.locked();
    for (SimulatedSwitcherEntry& entry : entries)
        entry.id = state->nextDockItem++;
    state->switcher = std::move(entries);
    selectInSwitcher(selection);
}

void SimulatedDesktop::selectInSwitcher(std::size_t selection, bool tells)
{
    const auto state = m_state.locked();
    state->switcherSelection = selection;
    if (tells)
        state->notify(state->dockPid, makeElement(Kind::SwitcherList, state->dockPid),
                      u"AXFocusedUIElementChanged"_s);
}

void SimulatedDesktop::movePointer(QPointF point)
{
    const auto state = m_state.locked();
    auto& before = state->pointerBefore;
    before.emplace(before.begin(), state->runLoop.now(), state->pointer);
    before.resize(std::min<std::size_t>(before.size(), 100));
    state->pointer = point;
    state->updateHover();
}

std::vector<platform::MousePlace> SimulatedInputState::mouseTrail()
{
    const auto state = m_state.locked();
    const platform::Seconds now = state->runLoop.now();
    std::vector<platform::MousePlace> result;
    QPointF at = state->pointer;
    for (const auto& [until, before] : state->pointerBefore) {
        result.push_back({at, now - until});
        at = before;
    }
    result.push_back({at, 1e9});
    return result;
}

void SimulatedDesktop::hoverDockItem(const QString& title)
{
    const QPointF center = dockItemFrame(title).center();
    movePointer({center.x(), m_state.locked()->screens.front().height() - center.y()});
}

void SimulatedDesktop::leaveDock()
{
    const QSizeF screen = m_state.locked()->screens.front().size();
    movePointer({screen.width() / 2, screen.height() / 2});
}

} // namespace lumbrix::test
