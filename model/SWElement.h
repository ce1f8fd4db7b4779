// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The record type of the window model: an accessibility element (a Dock item, a window, an
// application) and, once matched, its window-server window.
#pragma once

#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QImage>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "model/FilterLevels.h"
#include "model/WindowVerdict.h"
#include "platform/Accessibility.h"
#include "platform/Desktop.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

namespace lumbrix
{

/// The window server's list, or the part of it that may matter.
using ServerWindows = std::span<const platform::WindowInfo>;

class SWElement;
using SWElementPtr = std::shared_ptr<SWElement>;

/// A captured picture of a window.
struct WindowPicture {
    QImage image;         ///< null if there is no picture
    bool isWhole = false; ///< there is a picture and it was not reduced
};

/// What is known of a window's picture at once, perhaps an old one.
struct KnownWindowPicture {
    WindowPicture picture;
    bool isCurrent = false; ///< capturing would bring nothing else
};

/// Any thread: records are shared between the scanner, the capture threads and the main thread, so
/// each field is guarded. If an accessibility read fails, a query returns false, null or the zero
/// rectangle; nothing is reported.
class SWElement
{
public:
    /// The ports must outlive it and every element created from it.
    SWElement(const platform::Desktop& ports, platform::ElementRef element);
    SWElement(const SWElement&) = delete;
    SWElement& operator=(const SWElement&) = delete;

    // Factory functions; null if there is no such element.
    static SWElementPtr systemWideElement(const platform::Desktop& ports);
    static SWElementPtr elementWithElementRef(const platform::Desktop& ports,
                                              const platform::ElementRef& element);
    /// Point in accessibility coordinates. Returns the window at the point, or the element itself
    /// if it is a window or does not report its role.
    static SWElementPtr elementAtPosition(QPointF point, const SWElementPtr& systemWide);
    static SWElementPtr elementOfFocusedWindow(const platform::Desktop& ports);
    static std::vector<SWElementPtr> elementsForElementRef(const platform::Desktop& ports,
                                                           const platform::ElementRef& application);

    // Queries on the Dock.
    static std::int32_t getDockPid(const platform::Desktop& ports); ///< 0 if no Dock runs
    static SWElementPtr getFirstDockElement(const platform::Desktop& ports);
    static SWElementPtr getDockSelectedChild(const platform::Desktop& ports);
    /// The Dock's items that are running applications, each with its url; null if there are none,
    /// never an empty list.
    static std::optional<std::vector<SWElementPtr>> runningApps(const platform::Desktop& ports);
    static std::optional<platform::RunningApplication>
    runningAppForProccessListIcon(const platform::Desktop& ports, const platform::ElementRef& icon);
    static bool checkIfAppIsRunning(const platform::Desktop& ports,
                                    const platform::ElementRef& dockItem);
    /// True if the Dock item has the attribute that says whether it runs, whatever its value: only
    /// application items have it.
    static bool checkIfDockApplication(const platform::Desktop& ports,
                                       const platform::ElementRef& dockItem);
    static bool checkIfCal(const platform::Desktop& ports, const platform::ElementRef& dockItem);
    static bool checkIfBusyCal(const platform::Desktop& ports,
                               const platform::ElementRef& dockItem);
    static bool checkIfMinimizedWindowIcon(const platform::Desktop& ports,
                                           const platform::ElementRef& dockItem);
    static bool checkIfDockFocusedIsAXList(const platform::Desktop& ports);

    // Queries on elements, windows and applications.
    static std::optional<QString> titleForElement(const platform::Desktop& ports,
                                                  const platform::ElementRef& element);
    static bool checkIfWindow(const platform::Desktop& ports, const platform::ElementRef& element);
    static void activateApp(const platform::Desktop& ports,
                            const platform::ElementRef& application);
    /// Terminates every application whose name resembles that of the application under the mouse.
    static void quitApp(const platform::Desktop& ports);
    static bool checkIfPidHasOpenWindows(const platform::Desktop& ports, std::int32_t pid);
    static bool checkIfAnyWindowIsOnOtherSpace(const platform::Desktop& ports);
    static int spaceNumberOfWindow(const platform::Desktop& ports, platform::WindowID window);
    /// Whether the window server's window is large enough to be a window of the user.
    static bool testWindow(const platform::Desktop& ports, platform::WindowID window);
    static int keyCodeForNumberKey(int digit);

    /// Where getFilterLevel() looks up levels; null (the initial state) means that none are stored.
    /// Not owned. Main thread, while no other thread uses the model.
    static void setFilterLevels(const FilterLevels* levels);
    /// The level that holds for an application, and where it comes from.
    static AppliedFilterLevel filterLevelOf(const QString& bundle);

    bool isEqualTo(const SWElement* other) const;
    bool isEqualTo(const SWElementPtr& other) const { return isEqualTo(other.get()); }

    std::optional<QString> getTitle() const;
    int getFilterLevel() const { return filterLevelOf(bundle()).level; }
    /// Matches the element to an entry of the list (front to back); on success sets frame and wid.
    bool findPIDandWID(ServerWindows windows)
    {
        return matchWindow(windows) == WindowVerdict::Good;
    }
    /// The same, with the verdict.
    WindowVerdict matchWindow(ServerWindows windows);
    /// Whether it is of an application that no pictures are made of; those below are null then.
    bool isPrivate() const;
    /// Captures the window; a limit (pixels) reduces the picture to what just fits. Keeps nothing:
    /// the part that shows the window makes it the screenshot, so that a picture that comes late
    /// does not stay with a window that nobody looks at any more.
    WindowPicture grabWindow(QSize limit = {}) const;
    /// The same, while the window changes all the time: perhaps not quite exact.
    WindowPicture grabMovingWindow(QSize limit) const;
    /// What is known of its picture without waiting for a copy.
    KnownWindowPicture knownPicture(QSize limit) const;
    int getSpaceNumber();
    /// From its entry among these.
    int getSpaceNumber(ServerWindows windows);
    /// Whether it is still a window worth previewing.
    bool checkIfExists() { return judgeExistence() == WindowVerdict::Good; }
    /// The same, with the verdict.
    WindowVerdict judgeExistence();
    bool checkIfWIDIsInWindowList() const;
    bool checkIfMinimized() const;
    bool isClosable() const;
    void closeWindow();
    bool unhideIfHidden();
    void raise();
    /// For a Dock item: the one window that it stands for, if the platform knows it.
    std::optional<platform::WindowID> ownWindow() const;
    /// For an item of another program's request: the windows that it chose, in the order of their
    /// previews. Null = the windows of an application, as always for an item of a Dock.
    std::optional<std::vector<platform::ElementRef>> chosenWindows() const;
    /// For a Dock item: whether the Dock hides it. False if the Dock does not report that.
    bool isHidden() const;
    QRectF getRect() const;   ///< accessibility coordinates
    QRectF getNSRect() const; ///< screen coordinates, origin bottom left
    std::optional<platform::RunningApplication> runningApplicationForDockElement() const;
    std::optional<platform::RunningApplication> runningApplicationForWindow() const;

    const platform::ElementRef& element() const { return m_element; }
    QUrl url() const;
    void setUrl(const QUrl& url);
    std::int32_t pid() const { return m_pid; }
    void setPid(std::int32_t pid) { m_pid = pid; }
    platform::WindowID wid() const { return m_wid; }
    void setWid(platform::WindowID wid) { m_wid = wid; }
    QRectF frame() const;
    void setFrame(const QRectF& frame);
    int spaceNumber() const { return m_spaceNumber; }
    void setSpaceNumber(int number) { m_spaceNumber = number; }
    QImage screenshot() const;
    QImage wholeScreenshot() const; ///< null if it was reduced
    void setScreenshot(WindowPicture picture);
    QString bundle() const;
    void setBundle(const QString& bundle);

    bool isTabIcon() const { return m_isTabIcon; }
    void setIsTabIcon(bool on) { m_isTabIcon = on; }
    bool isMinimizedIcon() const { return m_isMinimizedIcon; }
    void setIsMinimizedIcon(bool on) { m_isMinimizedIcon = on; }
    /// The mouse has been seen at rest over this Dock item.
    bool isMouseConfirmed() const { return m_isMouseConfirmed; }
    void setIsMouseConfirmed(bool on) { m_isMouseConfirmed = on; }
    /// Switching away from this switcher entry is already scheduled.
    bool willBeChanged() const { return m_willBeChanged; }
    void setWillBeChanged(bool on) { m_willBeChanged = on; }
    /// Another program requested previews beside this item; the mouse need not be on it.
    bool isRequested() const { return m_isRequested; }
    void setIsRequested(bool on) { m_isRequested = on; }
    bool isCal() const { return m_isCal; }
    void setIsCal(bool on) { m_isCal = on; }

private:
    /// The title used for a window that does not answer.
    static QString notResponding();
    /// The result of reading the title.
    std::optional<QString> titleFrom(const platform::AXResult& read) const;
    bool isOwnerAsMatched() const;
    WindowVerdict judgeSubrole(int filterLevel) const;
    std::optional<QSizeF> sizeToCapture() const;

    const platform::Desktop& m_ports;
    const platform::ElementRef m_element;
    std::atomic<std::int32_t> m_pid{0};
    std::atomic<platform::WindowID> m_wid{0};
    std::atomic<int> m_spaceNumber{0};
    std::atomic<bool> m_isTabIcon{false};
    std::atomic<bool> m_isMinimizedIcon{false};
    std::atomic<bool> m_isMouseConfirmed{false};
    std::atomic<bool> m_willBeChanged{false};
    std::atomic<bool> m_isCal{false};
    std::atomic<bool> m_isRequested{false};
    /// The result of the last existence check; keeps a window that stops answering.
    std::atomic<bool> m_previouslyGood{false};

    mutable std::mutex m_mutex; ///< guards the members below
    QUrl m_url;
    QRectF m_frame;
    WindowPicture m_screenshot;
    QString m_bundle;
};

} // namespace lumbrix
