// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/support/SimulatedState.h"

#include <algorithm>

namespace lumbrix::test
{

using platform::WorkspaceNotification;
using Kind = SimulatedElement::Kind;

namespace
{

template <class Items, class Matches> auto* findIf(Items& items, Matches matches)
{
    const auto found = std::find_if(items.begin(), items.end(), matches);
    return found == items.end() ? nullptr : &*found;
}

} // namespace

SimulatedApplication* SimulatedState::application(Pid pid)
{
    return findIf(applications, [pid](const auto& each) { return each.pid == pid; });
}

SimulatedApplication* SimulatedState::applicationAt(const QUrl& url)
{
    return findIf(applications, [&url](const auto& each) { return each.bundleURL == url; });
}

SimulatedWindow* SimulatedState::window(WindowID number)
{
    const auto found = windows.find(number);
    return found == windows.end() ? nullptr : &found->second;
}

SimulatedDockItem* SimulatedState::dockItem(std::uint32_t id)
{
    return findIf(dockItems, [id](const auto& each) { return each.id == id; });
}

SimulatedSwitcherEntry* SimulatedState::switcherEntry(std::uint32_t id)
{
    return switcher ? findIf(*switcher, [id](const auto& each) { return each.id == id; }) : nullptr;
}

bool SimulatedState::isOnscreen(const SimulatedWindow& window)
{
    const SimulatedApplication* owner = application(window.pid);
    return window.isOnscreen.value_or(
        !window.isMinimized && owner && !owner->isHidden &&
        (window.isOnAllSpaces || window.space == 0 || window.space == currentSpace));
}

std::vector<WindowID> SimulatedState::windowsOf(Pid pid) const
{
    std::vector<WindowID> numbers;
    std::copy_if(stacking.begin(), stacking.end(), std::back_inserter(numbers),
                 [&](WindowID number) { return windows.at(number).pid == pid; });
    return numbers;
}

Pid SimulatedState::launch(SimulatedApplication application)
{
    if (application.pid == 0)
        application.pid = nextPid++;
    if (application.bundleIdentifier.isEmpty())
        application.bundleIdentifier = u"org.example."_s + application.name;
    if (application.bundleURL.isEmpty())
        application.bundleURL =
            QUrl::fromLocalFile(u"/Applications/%1.app"_s.arg(application.name));
    std::erase_if(installed,
                  [&](const auto& each) { return each.bundleURL == application.bundleURL; });
    applications.push_back(application);
    const bool isInDock = std::any_of(dockItems.begin(), dockItems.end(), [&](const auto& item) {
        return item.url == application.bundleURL;
    });
    if (application.isRegular) {
        if (!isInDock)
            addDockItem(
                {application.name, SimulatedDockItem::Kind::Application, application.bundleURL});
        notify(WorkspaceNotification::DidLaunchApplication, application.pid);
    }
    return application.pid;
}

void SimulatedState::quit(Pid pid)
{
    const SimulatedApplication* found = application(pid);
    if (!found)
        return;
    // Nothing reports the single windows: whoever could has ended.
    for (const WindowID number : windowsOf(pid)) {
        setMinimized(number, false);
        windows.erase(number);
        std::erase(stacking, number);
    }
    SimulatedApplication quitting = *found;
    quitting.pid = 0;
    std::erase_if(applications, [pid](const auto& each) { return each.pid == pid; });
    std::erase_if(dockItems, [&](const auto& item) {
        return item.url == quitting.bundleURL && !item.url.isEmpty() && !item.isPinned;
    });
    layOutDock();
    installed.push_back(quitting);
    if (quitting.isRegular)
        notify(WorkspaceNotification::DidTerminateApplication, pid);
}

void SimulatedState::activate(Pid pid)
{
    if (!application(pid))
        return;
    setHidden(pid, false);
    const auto own = windowsOf(pid);
    if (!own.empty()) {
        std::erase(stacking, own.front());
        stacking.insert(stacking.begin(), own.front());
    }
    if (std::exchange(activePid, pid) != pid)
        notify(WorkspaceNotification::DidActivateApplication, pid);
}

void SimulatedState::setHidden(Pid pid, bool hidden)
{
    if (SimulatedApplication* found = application(pid))
        found->isHidden = hidden;
}

WindowID SimulatedState::open(Pid pid, SimulatedWindow window)
{
    window.number = nextWindow++;
    window.pid = pid;
    const bool isMinimized = std::exchange(window.isMinimized, false);
    const WindowID number = window.number;
    windows.emplace(number, std::move(window));
    stacking.insert(stacking.begin(), number);
    notify(pid, makeElement(Kind::Window, pid, number), u"AXWindowCreated"_s);
    setMinimized(number, isMinimized);
    return number;
}

void SimulatedState::close(WindowID number)
{
    const SimulatedWindow* found = window(number);
    if (!found)
        return;
    const Pid pid = found->pid;
    setMinimized(number, false);
    windows.erase(number);
    std::erase(stacking, number);
    notify(pid, makeElement(Kind::Window, pid, number), u"AXUIElementDestroyed"_s);
}

void SimulatedState::give(WindowID number, Pid pid)
{
    SimulatedWindow* found = window(number);
    if (!found)
        return;
    const platform::ElementRef element = makeElement(Kind::Window, found->pid, number);
    notify(std::exchange(found->pid, pid), element, u"AXUIElementDestroyed"_s);
    notify(pid, element, u"AXWindowCreated"_s);
}

void SimulatedState::setMinimized(WindowID number, bool minimized)
{
    SimulatedWindow* found = window(number);
    if (!found || std::exchange(found->isMinimized, minimized) == minimized)
        return;
    if (minimized) {
        addDockItem({found->title, SimulatedDockItem::Kind::MinimizedWindow, {}, number});
    } else {
        std::erase_if(dockItems, [number](const auto& item) { return item.window == number; });
        layOutDock();
    }
}

void SimulatedState::raise(WindowID number)
{
    const SimulatedWindow* found = window(number);
    if (!found)
        return;
    setMinimized(number, false);
    if (!found->isOnAllSpaces && found->space != 0)
        showSpace(found->space);
    // In front of the windows of its own application, of all when that is active.
    const Pid pid = found->pid;
    std::erase(stacking, number);
    const auto before = pid == activePid
                            ? stacking.begin()
                            : std::find_if(stacking.begin(), stacking.end(), [&](WindowID other) {
                                  return windows.at(other).pid == pid;
                              });
    stacking.insert(before, number);
}

void SimulatedState::showSpace(int space)
{
    if (std::exchange(currentSpace, space) != space)
        notify(WorkspaceNotification::ActiveSpaceDidChange, 0);
}

void SimulatedState::addDockItem(SimulatedDockItem item)
{
    item.id = nextDockItem++;
    // Applications come first, then the separator with what lies right of it.
    const bool isApplication = item.kind == SimulatedDockItem::Kind::Application;
    const auto isLater = [isApplication](const SimulatedDockItem& other) {
        return isApplication ? other.kind != SimulatedDockItem::Kind::Application
                             : other.kind == SimulatedDockItem::Kind::Trash;
    };
    dockItems.insert(std::find_if(dockItems.begin(), dockItems.end(), isLater), std::move(item));
    layOutDock();
}

void SimulatedState::layOutDock()
{
    constexpr double pitch = 50;
    constexpr double side = 48;
    constexpr double margin = 4;
    const QRectF screen = screens.empty() ? QRectF() : screens.front();
    const bool isRow = !dockEdge || isHorizontal(*dockEdge);
    const double length = pitch * static_cast<double>(dockItems.size());
    double along = ((isRow ? screen.width() : screen.height()) - length) / 2;
    for (SimulatedDockItem& item : dockItems) {
        if (dockEdge == platform::DockEdge::Top)
            item.frame = {along, margin, side, side};
        else if (isRow)
            item.frame = {along, screen.height() - side - margin, side, side};
        else if (dockEdge == platform::DockEdge::Left)
            item.frame = {margin, along, side, side};
        else
            item.frame = {screen.width() - side - margin, along, side, side};
        along += pitch;
    }
    updateHover();
}

void SimulatedState::updateHover()
{
    const double height = screens.empty() ? 0 : screens.front().height();
    const QPointF point(pointer.x(), height - pointer.y());
    std::uint32_t hovered = 0;
    for (const SimulatedDockItem& item : dockItems)
        if (item.frame.contains(point))
            hovered = item.id;
    if (std::exchange(hoveredItem, hovered) != hovered)
        notify(dockPid, makeElement(Kind::DockList, dockPid), u"AXSelectedChildrenChanged"_s);
}

void SimulatedState::notify(Pid pid, const platform::ElementRef& element,
                            const QString& notification)
{
    const platform::ElementRef owner = makeElement(Kind::Application, pid);
    for (const auto& observation : observations) {
        if (observation->pid != pid || !observation->isInRunLoop)
            continue;
        for (const auto& request : observation->requests) {
            if (request.notification != notification ||
                !(request.element->isEqual(*element) || request.element->isEqual(*owner)))
                continue;
            const std::weak_ptr<SimulatedObservation> target = observation;
            runLoop.performOnMainThread(
                [target, element, notification, context = request.context] {
                    if (const auto alive = target.lock())
                        alive->callback(*alive->observer, element, notification, context);
                },
                false);
        }
    }
}

void SimulatedState::notify(WorkspaceNotification notification, Pid pid)
{
    for (const auto& subscription : subscriptions) {
        if (subscription->notification != notification)
            continue;
        const std::weak_ptr<SimulatedSubscription> target = subscription;
        runLoop.performOnMainThread(
            [target, pid] {
                if (const auto alive = target.lock())
                    alive->observer(pid);
            },
            false);
    }
}

} // namespace lumbrix::test
