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
    addDockItem({QStringLiteral("Trash"), ItemKind::Trash});
    m_state.ownPid = m_state.launch(
        {QStringLiteral("Lumbrix"), QStringLiteral("org.example.Lumbrix"), 0, false});
}

platform::Desktop SimulatedDesktop::ports(platform::Accessibility& accessibility,
                                          platform::WindowServer& windowServer)
{
    return {m_state.runLoop,  accessibility,   windowServer,        m_inputState,
            m_workspace,      m_userDefaults,  m_dockPreferences,   m_eventTaps,
            m_keyboardLayout, m_loginItems,    m_applicationBundle, m_statusBar,
            m_appleEvents,    m_calendarStore, m_wallClock,         m_previewRequests};
}

Pid SimulatedDesktop::addApplication(SimulatedApplication application)
{
    return with([&](SimulatedState& state) { return state.launch(std::move(application)); });
}

void SimulatedDesktop::quitApplication(Pid pid)
{
    with([&](SimulatedState& state) { state.quit(pid); });
}

void SimulatedDesktop::activateApplication(Pid pid)
{
    with([&](SimulatedState& state) { state.activate(pid); });
}

void SimulatedDesktop::changeApplication(Pid pid,
                                         const std::function<void(SimulatedApplication&)>& change)
{
    with([&](SimulatedState& state) { change(*state.application(pid)); });
}

SimulatedApplication SimulatedDesktop::application(Pid pid)
{
    return with([&](SimulatedState& state) {
        const SimulatedApplication* found = state.application(pid);
        return found ? *found : SimulatedApplication{};
    });
}

Pid SimulatedDesktop::activeApplication()
{
    return with([](SimulatedState& state) { return state.activePid; });
}

Pid SimulatedDesktop::ownPid()
{
    return with([](SimulatedState& state) { return state.ownPid; });
}

WindowID SimulatedDesktop::addWindow(Pid pid, SimulatedWindow window)
{
    return with([&](SimulatedState& state) { return state.open(pid, std::move(window)); });
}

void SimulatedDesktop::closeWindow(WindowID window)
{
    with([&](SimulatedState& state) { state.close(window); });
}

void SimulatedDesktop::giveWindow(WindowID window, Pid pid)
{
    with([&](SimulatedState& state) { state.give(window, pid); });
}

void SimulatedDesktop::minimizeWindow(WindowID window, bool minimized)
{
    with([&](SimulatedState& state) { state.setMinimized(window, minimized); });
}

void SimulatedDesktop::changeWindow(WindowID window,
                                    const std::function<void(SimulatedWindow&)>& change)
{
    with([&](SimulatedState& state) { change(*state.window(window)); });
}

std::optional<SimulatedWindow> SimulatedDesktop::window(WindowID window)
{
    return with([&](SimulatedState& state) {
        const SimulatedWindow* found = state.window(window);
        return found ? std::optional(*found) : std::nullopt;
    });
}

std::vector<WindowID> SimulatedDesktop::stacking()
{
    return with([](SimulatedState& state) { return state.stacking; });
}

platform::ElementRef SimulatedDesktop::windowElement(WindowID window)
{
    return with([&](SimulatedState& state) {
        return makeElement(Kind::Window, state.window(window)->pid, window);
    });
}

int SimulatedDesktop::captures(WindowID window)
{
    return with([&](SimulatedState& state) { return state.window(window)->captures; });
}

void SimulatedDesktop::showSpace(int space)
{
    with([&](SimulatedState& state) { state.showSpace(space); });
}

void SimulatedDesktop::addDockItem(SimulatedDockItem item)
{
    with([&](SimulatedState& state) { state.addDockItem(std::move(item)); });
}

void SimulatedDesktop::setDockOrientation(const QString& orientation)
{
    with([&](SimulatedState& state) {
        state.dockOrientation = orientation;
        state.layOutDock();
    });
}

void SimulatedDesktop::setDockFlags(std::optional<int> magnification, std::optional<int> autohide)
{
    with([&](SimulatedState& state) {
        state.dockMagnification = magnification;
        state.dockAutohide = autohide;
    });
}

void SimulatedDesktop::killDock()
{
    with([](SimulatedState& state) {
        const Pid pid = std::exchange(state.dockPid, 0);
        state.quit(pid);
        state.switcher.reset();
        if (std::exchange(state.hoveredItem, 0) != 0)
            state.notify(pid, makeElement(Kind::DockList, pid),
                         QStringLiteral("AXSelectedChildrenChanged"));
    });
}

Pid SimulatedDesktop::startDock()
{
    return with([](SimulatedState& state) {
        state.dockPid =
            state.launch({QStringLiteral("Dock"), QStringLiteral("com.apple.dock"), 0, false});
        for (SimulatedDockItem& item : state.dockItems)
            item.id = state.nextDockItem++;
        state.hoveredItem = 0;
        state.updateHover();
        return state.dockPid;
    });
}

Pid SimulatedDesktop::dockPid()
{
    return with([](SimulatedState& state) { return state.dockPid; });
}

platform::ElementRef SimulatedDesktop::dockItem(const QString& title)
{
    return with([&](SimulatedState& state) -> platform::ElementRef {
        for (const SimulatedDockItem& item : state.dockItems) {
            if (item.title == title)
                return makeElement(Kind::DockItem, state.dockPid, item.id);
        }
        return nullptr;
    });
}

QRectF SimulatedDesktop::dockItemFrame(const QString& title)
{
    return with([&](SimulatedState& state) {
        for (const SimulatedDockItem& item : state.dockItems) {
            if (item.title == title)
                return item.frame;
        }
        return QRectF();
    });
}

void SimulatedDesktop::openDockMenu()
{
    with([](SimulatedState& state) {
        state.notify(state.dockPid, makeElement(Kind::DockList, state.dockPid),
                     QStringLiteral("AXMenuOpened"));
    });
}

void SimulatedDesktop::setSystemUIMode(std::uint32_t mode)
{
    with([mode](SimulatedState& state) {
        if (std::exchange(state.systemUIMode, mode) != mode)
            state.notify(platform::WorkspaceNotification::SystemUIModeDidChange, 0);
    });
}

void SimulatedDesktop::tellDockItemsChanged()
{
    with([](SimulatedState& state) {
        state.notify(platform::WorkspaceNotification::DockItemsDidChange, 0);
    });
}

void SimulatedDesktop::tellScreensChanged()
{
    with([](SimulatedState& state) {
        state.notify(platform::WorkspaceNotification::ScreensDidChange, 0);
    });
}

void SimulatedDesktop::openSwitcher(std::vector<SimulatedSwitcherEntry> entries,
                                    std::size_t selection)
{
    with([&](SimulatedState& state) {
        for (SimulatedSwitcherEntry& entry : entries)
            entry.id = state.nextDockItem++;
        state.switcher = std::move(entries);
    });
    selectInSwitcher(selection);
}

void SimulatedDesktop::selectInSwitcher(std::size_t selection, bool tells)
{
    with([&](SimulatedState& state) {
        state.switcherSelection = selection;
        if (tells)
            state.notify(state.dockPid, makeElement(Kind::SwitcherList, state.dockPid),
                         QStringLiteral("AXFocusedUIElementChanged"));
    });
}

void SimulatedDesktop::closeSwitcher()
{
    with([](SimulatedState& state) { state.switcher.reset(); });
}

void SimulatedDesktop::movePointer(QPointF point)
{
    with([&](SimulatedState& state) {
        state.pointer = point;
        state.updateHover();
    });
}

void SimulatedDesktop::hoverDockItem(const QString& title)
{
    const QPointF center = dockItemFrame(title).center();
    movePointer({center.x(), with([](SimulatedState& state) {
                                 return state.screens.front().height();
                             }) - center.y()});
}

void SimulatedDesktop::leaveDock()
{
    const QSizeF screen = with([](SimulatedState& state) { return state.screens.front().size(); });
    movePointer({screen.width() / 2, screen.height() / 2});
}

void SimulatedDesktop::setButtons(std::uint32_t buttons)
{
    with([&](SimulatedState& state) { state.buttons = buttons; });
}

void SimulatedDesktop::setModifiers(std::uint32_t flags)
{
    with([&](SimulatedState& state) { state.modifiers = flags; });
}

} // namespace lumbrix::test
