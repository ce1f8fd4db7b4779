// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/WindowInventory.h"

#include <algorithm>
#include <utility>

#include "model/BundleIdentifiers.h"
#include "model/VisibilityRules.h"
#include "platform/Log.h"
#include "platform/Workspace.h"

namespace lumbrix
{

using platform::ElementRef;
using platform::WindowList;

ServerList::ServerList(WindowList list) : m_list(std::move(list))
{
    for (std::size_t i = 0; i < m_list.size(); ++i)
        m_places.try_emplace(m_list[i].number, i);
}

ServerWindows ServerList::numbered(platform::WindowID number) const
{
    const auto place = m_places.find(number);
    return place == m_places.end() ? ServerWindows() : all().subspan(place->second, 1);
}

WindowInventory::WindowInventory(const platform::Desktop& ports, const EngineSettings& settings,
                                 InventoryObserver& observer)
    : m_ports(ports), m_settings(settings), m_observer(observer)
{
    m_windows.reserve(5);
}

std::vector<SWElementPtr> WindowInventory::windowsArray() const
{
    const std::lock_guard lock(m_lock);
    return m_windows;
}

void WindowInventory::addObject(const SWElementPtr& element)
{
    {
        const std::lock_guard lock(m_lock);
        m_windows.push_back(element);
        m_elements.insert(element->element());
    }
    m_observer.windowsChanged();
}

void WindowInventory::insertObject(const SWElementPtr& element, std::size_t index)
{
    {
        const std::lock_guard lock(m_lock);
        const auto position = std::min(index, m_windows.size());
        m_windows.insert(m_windows.begin() + static_cast<std::ptrdiff_t>(position), element);
        m_elements.insert(element->element());
    }
    m_observer.windowsChanged();
}

void WindowInventory::removeObject(const SWElementPtr& element)
{
    {
        const std::lock_guard lock(m_lock);
        qCDebug(log::windows, "window %#x is forgotten", element->wid());
        for (auto count = std::erase(m_windows, element); count > 0; --count)
            if (const auto found = m_elements.find(element->element()); found != m_elements.end())
                m_elements.erase(found);
    }
    m_observer.windowsChanged();
}

WindowList WindowInventory::copyWindowList() const
{
    return m_ports.windowServer.copyWindowInfo(platform::WindowListOption::ExcludeDesktopElements);
}

std::vector<std::int32_t> WindowInventory::scannedApplications() const
{
    platform::Workspace& workspace = m_ports.workspace;
    if (!m_settings.showOthersInDockIcon)
        return workspace.launchedApplications();
    std::vector<std::int32_t> pids;
    for (const auto& application : workspace.runningApplications())
        pids.push_back(application.pid);
    return pids;
}

void WindowInventory::windowScanner()
{
    if (m_settings.disabled)
        return;
    cleanWindowsArray();
    const ServerList list(copyWindowList());
    for (const std::int32_t pid : scannedApplications())
        addAppWindows(pid, list);
    if (m_settings.showSpaces && !m_observer.isShowingPreviews())
        for (const SWElementPtr& window : windowsArray())
            window->getSpaceNumber(list.numbered(window->wid()));
}

void WindowInventory::cleanWindowsArray()
{
    for (const SWElementPtr& window : windowsArray())
        if (!window->checkIfExists())
            removeObject(window);
}

void WindowInventory::addAppWindows(std::int32_t pid, const ServerList& list)
{
    const ElementRef application = m_ports.accessibility.createApplication(pid);
    if (!application)
        return;
    for (const SWElementPtr& window : SWElement::elementsForElementRef(m_ports, application))
        processWindow(window, list);
}

WindowVerdict WindowInventory::processWindow(const SWElementPtr& element, const ServerList& list)
{
    {
        const std::lock_guard lock(m_lock);
        if (m_elements.contains(element->element()))
            return WindowVerdict::Good;
    }
    const auto number = element->ownWindow();
    WindowVerdict verdict = element->matchWindow(number ? list.numbered(*number) : list.all());
    if (verdict == WindowVerdict::Good)
        verdict = element->judgeExistence();
    if (verdict != WindowVerdict::Good)
        return verdict;
    {
        // Looked up and added under one lock: a scan and a notification may report the same window
        // at the same time.
        const std::lock_guard lock(m_lock);
        const auto isSameWindow = [wid = element->wid()](const SWElementPtr& other) {
            return other->wid() == wid;
        };
        if (m_elements.contains(element->element()))
            return WindowVerdict::Good;
        // Where the platform knows the numbers, another element is another window.
        if (!number && std::any_of(m_windows.begin(), m_windows.end(), isSameWindow))
            return WindowVerdict::NumberListed;
        m_windows.push_back(element);
        m_elements.insert(element->element());
    }
    qCDebug(log::windows, "window %#x of %s is known", element->wid(),
            qUtf8Printable(element->bundle()));
    m_observer.windowsChanged();
    return WindowVerdict::Good;
}

void WindowInventory::removeWindow(const ElementRef& element)
{
    for (const SWElementPtr& window : windowsArray()) {
        if (platform::elementsEqual(window->element(), element)) {
            removeObject(window);
            return;
        }
    }
}

std::vector<SWElementPtr> WindowInventory::listedForPID(std::int32_t pid) const
{
    std::vector<SWElementPtr> windows;
    const std::lock_guard lock(m_lock);
    for (const SWElementPtr& window : m_windows)
        if (window->pid() == pid)
            windows.push_back(window);
    return windows;
}

std::vector<SWElementPtr> WindowInventory::windowsForPID(std::int32_t pid) const
{
    const VisibilityRules rules(m_ports, m_settings);
    if (rules.verdictForApplication(pid) != WindowVerdict::Good)
        return {};
    std::vector<SWElementPtr> windows;
    for (const SWElementPtr& window : listedForPID(pid)) {
        // Its window numbers change while it runs.
        if (window->bundle() == BundleIdentifier::Illustrator)
            window->findPIDandWID(copyWindowList());
        if (rules.verdictForWindow(*window) == WindowVerdict::Good)
            windows.push_back(window);
    }
    return windows;
}

bool WindowInventory::standsForOthers(const platform::RunningApplication& application) const
{
    return m_settings.showOthersInDockIcon &&
           application.bundleIdentifier == m_ports.workspace.ownBundleIdentifier();
}

std::vector<std::int32_t>
WindowInventory::processesBehindIcon(const platform::RunningApplication& application) const
{
    std::vector<std::int32_t> pids{application.pid};
    if (standsForOthers(application)) {
        for (const std::int32_t pid : applicationsWithoutDockIcon())
            if (pid != application.pid)
                pids.push_back(pid);
    }
    return pids;
}

std::vector<SWElementPtr>
WindowInventory::windowsBehindIcon(const platform::RunningApplication& application) const
{
    std::vector<SWElementPtr> windows;
    for (const std::int32_t pid : processesBehindIcon(application)) {
        const auto more = windowsForPID(pid);
        windows.insert(windows.end(), more.begin(), more.end());
    }
    return windows;
}

std::vector<SWElementPtr>
WindowInventory::windowsBehindItem(const SWElement& item,
                                   const platform::RunningApplication& application) const
{
    const auto chosen = item.chosenWindows();
    if (!chosen)
        return windowsBehindIcon(application);
    const VisibilityRules rules(m_ports, m_settings);
    const auto known = windowsArray();
    std::vector<SWElementPtr> windows;
    for (const ElementRef& each : *chosen) {
        const auto window = std::ranges::find_if(known, [&each](const SWElementPtr& record) {
            return platform::elementsEqual(record->element(), each);
        });
        if (window != known.end() &&
            rules.verdictForApplication((*window)->pid()) == WindowVerdict::Good &&
            rules.verdictForWindow(**window) == WindowVerdict::Good)
            windows.push_back(*window);
    }
    return windows;
}

int WindowInventory::countForPID(std::int32_t pid) const
{
    int count = 0;
    // The override key is ignored: counts should not change while a key is held.
    for (const SWElementPtr& window : listedForPID(pid))
        if (!m_settings.ignoreMinimized || !window->checkIfMinimized())
            ++count;
    return count;
}

int WindowInventory::countForRunningApp(const platform::RunningApplication& application) const
{
    if (!standsForOthers(application) && m_settings.ignoreHidden &&
        m_ports.workspace.isHidden(application.pid))
        return 0;
    int count = 0;
    for (const std::int32_t pid : processesBehindIcon(application))
        count += countForPID(pid);
    return count;
}

SWElementPtr WindowInventory::windowForMinimizedIcon(const SWElement& icon) const
{
    // Titles are not unique: two minimised windows may have the same one. If the platform knows the
    // window, only that one is right.
    const auto number = icon.ownWindow();
    const auto title = icon.getTitle();
    if (!number && !title)
        return nullptr;
    for (const SWElementPtr& window : windowsArray()) {
        const bool isMeant = number ? window->wid() == *number : window->getTitle() == title;
        if (isMeant && window->checkIfMinimized() && window->checkIfExists())
            return window;
    }
    return nullptr;
}

std::vector<std::int32_t> WindowInventory::applicationsWithoutDockIcon() const
{
    platform::Workspace& workspace = m_ports.workspace;
    const std::vector<std::int32_t> launched = workspace.launchedApplications();
    std::vector<std::int32_t> others;
    for (const auto& application : workspace.runningApplications())
        if (std::find(launched.begin(), launched.end(), application.pid) == launched.end())
            others.push_back(application.pid);
    return others;
}

} // namespace lumbrix
