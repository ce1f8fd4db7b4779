// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Every previewable window of every application, matched to the window server.
#pragma once

#include <cstdint>
#include <mutex>
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
    /// The list of windows changed; called after the lock is released, must not wait.
    virtual void windowsChanged() = 0;
    /// Whether previews are showing now; their Space numbers are left alone while they do.
    virtual bool isShowingPreviews() const = 0;
};

/// Any thread: readers walk a copy, changes take the lock for the change alone.
class WindowInventory
{
public:
    /// All of it outlives the inventory.
    WindowInventory(const platform::Desktop& ports, const EngineSettings& settings,
                    InventoryObserver& observer);

    std::vector<SWElementPtr> windowsArray() const;
    void addObject(const SWElementPtr& element);
    void insertObject(const SWElementPtr& element, std::size_t index); ///< at most at the end
    void removeObject(const SWElementPtr& element);

    /// The processes whose windows are looked for.
    std::vector<std::int32_t> scannedApplications() const;
    /// One scan of all of them; nothing while the engine is disabled.
    void windowScanner();
    /// Drops the windows that no longer exist.
    void cleanWindowsArray();
    void addAppWindows(std::int32_t pid, const platform::WindowList& windowList);
    /// Adds one window if it is new and real. Good when it is listed now, else why not.
    WindowVerdict processWindow(const SWElementPtr& element,
                                const platform::WindowList& windowList);
    void removeWindow(const platform::ElementRef& element);

    /// The listed windows of one process, as the visibility settings allow.
    std::vector<SWElementPtr> windowsForPID(std::int32_t pid) const;
    /// Whether the application is this program and its Dock icon stands for the applications
    /// without one, too.
    bool standsForOthers(const platform::RunningApplication& application) const;
    /// The processes that an application's Dock icon stands for: its own and, if it stands for
    /// others, that of every application without an icon.
    std::vector<std::int32_t>
    processesBehindIcon(const platform::RunningApplication& application) const;
    /// windowsForPID of all of them.
    std::vector<SWElementPtr>
    windowsBehindIcon(const platform::RunningApplication& application) const;
    /// Those behind the application's icon or, where the item stands for chosen windows, as many of
    /// these as are listed and allowed, of whatever applications.
    std::vector<SWElementPtr>
    windowsBehindItem(const SWElement& item, const platform::RunningApplication& application) const;
    int countForPID(std::int32_t pid) const;
    int countForRunningApp(const platform::RunningApplication& application) const;
    /// The minimised window that a Dock icon stands for: the one that the platform knows, else the
    /// first of its title; null when none is known.
    SWElementPtr windowForMinimizedIcon(const SWElement& icon) const;
    /// Running applications that have no Dock icon of their own, in running order.
    std::vector<std::int32_t> applicationsWithoutDockIcon() const;

    /// The window server's list as every caller takes it.
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
    /// Those of m_windows, so that a scan, which mostly finds nothing new, need not compare each
    /// window with each other.
    std::unordered_multiset<platform::ElementRef, ElementHash, ElementEqual> m_elements;
};

} // namespace lumbrix
