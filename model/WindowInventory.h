// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Every previewable window of every application, matched to the window server.
#pragma once

#include <cstdint>
#include <mutex>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "model/EngineSettings.h"
#include "model/SWElement.h"
#include "platform/Desktop.h"
#include "platform/WindowServer.h"

namespace lumbrix
{

/// What the inventory tells the engine. Any thread.
class InventoryObserver
{
public:
    virtual ~InventoryObserver() = default;
    /// The list of windows changed. Called after the lock is released; must not block.
    virtual void windowsChanged() = 0;
    /// Whether previews are shown now; Space numbers are not updated meanwhile.
    virtual bool isShowingPreviews() const = 0;
};

/// The window server's list of one moment, in which a scan looks up every window.
class ServerList
{
public:
    ServerList(platform::WindowList list); // NOLINT(google-explicit-constructor): it is that list

    ServerWindows all() const { return m_list; }
    /// The entry of that number; empty without one.
    ServerWindows numbered(platform::WindowID number) const;

private:
    const platform::WindowList m_list;
    std::unordered_map<platform::WindowID, std::size_t> m_places;
};

/// Any thread: readers iterate over a copy, and the lock is held only during a change.
class WindowInventory
{
public:
    /// All arguments must outlive the inventory.
    WindowInventory(const platform::Desktop& ports, const EngineSettings& settings,
                    InventoryObserver& observer);

    std::vector<SWElementPtr> windowsArray() const;
    void addObject(const SWElementPtr& element);
    void insertObject(const SWElementPtr& element, std::size_t index); ///< clamped to the size
    void removeObject(const SWElementPtr& element);

    /// The processes whose windows are searched for.
    std::vector<std::int32_t> scannedApplications() const;
    /// Scans all of them once; does nothing while the engine is disabled.
    void windowScanner();
    /// Removes the windows that no longer exist.
    void cleanWindowsArray();
    void addAppWindows(std::int32_t pid, const ServerList& list);
    /// Adds the window if it is new and real. Returns Good if it is listed now, otherwise the
    /// reason why not.
    WindowVerdict processWindow(const SWElementPtr& element, const ServerList& list);
    void removeWindow(const platform::ElementRef& element);

    /// The listed windows of one process.
    std::vector<SWElementPtr> listedForPID(std::int32_t pid) const;
    /// Those of them that the visibility settings allow.
    std::vector<SWElementPtr> windowsForPID(std::int32_t pid) const;
    /// Whether the application is this program and its Dock icon also stands for the applications
    /// without an icon.
    bool standsForOthers(const platform::RunningApplication& application) const;
    /// The processes that an application's Dock icon stands for: its own and, if it stands for
    /// others, those of all applications without an icon.
    std::vector<std::int32_t>
    processesBehindIcon(const platform::RunningApplication& application) const;
    /// windowsForPID() for all of these processes.
    std::vector<SWElementPtr>
    windowsBehindIcon(const platform::RunningApplication& application) const;
    /// The windows behind the application's icon. If the item stands for chosen windows: those of
    /// them that are listed and allowed, of any application.
    std::vector<SWElementPtr>
    windowsBehindItem(const SWElement& item, const platform::RunningApplication& application) const;
    int countForPID(std::int32_t pid) const;
    int countForRunningApp(const platform::RunningApplication& application) const;
    /// The minimised window that a Dock icon stands for: the one that the platform reports,
    /// otherwise the first one with its title; null if there is none.
    SWElementPtr windowForMinimizedIcon(const SWElement& icon) const;
    /// Running applications without a Dock icon of their own, in the order of Workspace.
    std::vector<std::int32_t> applicationsWithoutDockIcon() const;

    /// The window server's list, for all callers.
    platform::WindowList copyWindowList() const;

private:
    const platform::Desktop& m_ports;
    const EngineSettings& m_settings;
    InventoryObserver& m_observer;
    struct ElementHash {
        std::size_t operator()(const platform::ElementRef& element) const
        {
            return element ? element->hash() : 0;
        }
    };
    struct ElementEqual {
        bool operator()(const platform::ElementRef& a, const platform::ElementRef& b) const
        {
            return platform::elementsEqual(a, b);
        }
    };

    mutable std::mutex m_lock; ///< guards the members below
    std::vector<SWElementPtr> m_windows;
    /// The elements of m_windows, so that a scan, which mostly finds nothing new, need not compare
    /// every window with every other.
    std::unordered_multiset<platform::ElementRef, ElementHash, ElementEqual> m_elements;
};

} // namespace lumbrix
