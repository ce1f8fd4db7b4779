// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What is on the simulated desktop, and what happens when something changes. The ports and the
// tests' controls both work on it.
#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QColor>
#include <QtGui/QImage>

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/DockEdge.h"
#include "platform/RunLoop.h"
#include "platform/StringLiterals.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

namespace lumbrix::test
{

using platform::WindowID;
using Pid = std::int32_t;

/// An element of the simulated desktop: what it is and which one. Every read makes new ones, so
/// that only their own equality can tell that two are the same.
struct SimulatedElement final : platform::AXElement {
    enum class Kind {
        SystemWide,
        Application,
        Window,
        CloseButton,
        Content, ///< the one child of a window
        DockList,
        DockItem,
        SwitcherList,
        SwitcherEntry,
    };

    SimulatedElement(Kind k, std::int32_t p, std::uint32_t i) : kind(k), pid(p), id(i) {}
    bool isEqual(const AXElement& other) const override
    {
        const auto* same = dynamic_cast<const SimulatedElement*>(&other);
        // A window that becomes another application's stays the same.
        return same && same->kind == kind && same->id == id &&
               (same->pid == pid || kind == Kind::Window);
    }
    std::size_t hash() const override { return id; }

    const Kind kind;
    const std::int32_t pid; ///< of the owner; 0 for the system-wide element
    const std::uint32_t id; ///< window number, Dock item or switcher entry
};

inline platform::ElementRef makeElement(SimulatedElement::Kind kind, std::int32_t pid,
                                        std::uint32_t id = 0)
{
    return std::make_shared<SimulatedElement>(kind, pid, id);
}

struct SimulatedApplication {
    QString name;
    QString bundleIdentifier{}; ///< made from the name when empty
    Pid pid = 0;                ///< made up when 0
    bool isRegular = true;      ///< shows in the Dock
    bool isHidden = false;
    bool responds = true;     ///< else its elements answer CannotComplete
    bool isObservable = true; ///< else no observer can be made for it
    QUrl bundleURL{};         ///< made from the name when empty
    QUrl executableURL{};
    platform::ApplicationRole role = platform::ApplicationRole::Other;
    QColor iconColor{}; ///< invalid = has no icon
};

struct SimulatedWindow {
    QString title;
    QRectF frame{100, 100, 400, 300}; ///< accessibility coordinates
    QString role = u"AXWindow"_s;
    QString subrole = u"AXStandardWindow"_s; ///< null = unreadable
    bool isMinimized = false;
    bool isClosable = true;
    int space = 1; ///< 0 = not known
    bool isOnAllSpaces = false;
    int layer = 0;
    bool hasContent = true;      ///< has "AXChildren"
    QColor color = Qt::darkCyan; ///< of the whole picture ...
    int version = 0;             ///< ... but for its first pixel, which tells the version
    bool hasPicture = true;
    std::optional<QRectF> listedFrame{}; ///< what the window server says, where that differs
    std::optional<QString> listedName{};
    std::optional<bool> isOnscreen{};
    std::map<QString, platform::AXValue> attributes{}; ///< further ones, all settable

    // The desktop's own.
    WindowID number = 0;
    Pid pid = 0;
    int captures = 0;
    std::vector<platform::PictureDrawing> drawings{}; ///< of its picture, by the server
    bool isToldOf = false; ///< that its picture has changed since the last capture
    QImage picture{};
};

struct SimulatedDockItem {
    enum class Kind { Application, MinimizedWindow, Separator, Folder, Trash };

    QString title;
    Kind kind = Kind::Application;
    QUrl url{};            ///< of an application
    WindowID window = 0;   ///< of a minimised-window icon, of a button that is its window's alone
    bool isPinned = false; ///< stays when its application quits
    std::optional<std::vector<WindowID>> chosen{}; ///< of one that was asked for
    QRectF frame{}; ///< accessibility coordinates; the Dock lays its items out
    std::uint32_t id = 0;
    Pid owner = 0; ///< of an application; 0: the Dock tells its url only
};

struct SimulatedSwitcherEntry {
    QString title;
    std::optional<bool> isRunning{}; ///< "AXIsApplicationRunning", where it has that
    QUrl url{};                      ///< "AXURL", where it has that
    WindowID window = 0;             ///< of a switcher that lists windows
    std::uint32_t id = 0;
};

/// What an observer asked for; the desktop's side of an AXObserver.
struct SimulatedObservation {
    platform::AXObserver* observer = nullptr;
    Pid pid = 0;
    platform::AXObserver::Callback callback{};
    bool isInRunLoop = false;
    struct Request {
        platform::ElementRef element;
        QString notification;
        platform::NotificationContext* context;
    };
    std::vector<Request> requests{};
};

struct SimulatedPictureWatch {
    WindowID window;
    std::function<void()> changed;
};

struct SimulatedSubscription {
    platform::WorkspaceNotification notification;
    platform::Workspace::Observer observer;
};

/// Guarded by its one mutex, which every caller holds while it reads or calls.
struct SimulatedState {
    /// The state, locked while this exists.
    struct Locked {
        std::unique_lock<std::recursive_mutex> lock;
        SimulatedState& state;
        SimulatedState* operator->() const { return &state; }
    };

    explicit SimulatedState(platform::RunLoop& loop) : runLoop(loop) {}
    /// For one expression: state.locked()->activePid.
    Locked locked() { return {std::unique_lock(mutex), *this}; }

    SimulatedApplication* application(Pid pid);
    SimulatedWindow* window(WindowID number);
    SimulatedDockItem* dockItem(std::uint32_t id);
    SimulatedSwitcherEntry* switcherEntry(std::uint32_t id);
    SimulatedApplication* applicationAt(const QUrl& url);
    bool isOnscreen(const SimulatedWindow& window);
    std::vector<WindowID> windowsOf(Pid pid) const; ///< front to back

    Pid launch(SimulatedApplication application);
    void quit(Pid pid);
    void activate(Pid pid);
    void setHidden(Pid pid, bool hidden);
    WindowID open(Pid pid, SimulatedWindow window);
    void close(WindowID number);
    void give(WindowID number, Pid pid);
    void setMinimized(WindowID number, bool minimized);
    /// Brings the window up, from another Space and from the Dock if need be.
    void raise(WindowID number);
    void showSpace(int space);

    void addDockItem(SimulatedDockItem item);
    void layOutDock();
    /// Tells the Dock's observers when another item is under the pointer.
    void updateHover();

    void notify(Pid pid, const platform::ElementRef& element, const QString& notification);
    void notify(platform::WorkspaceNotification notification, Pid pid);

    platform::RunLoop& runLoop;
    std::recursive_mutex mutex;

    std::vector<SimulatedApplication> applications;
    std::vector<SimulatedApplication> installed; ///< not running, but could be launched
    Pid activePid = 0;
    Pid nextPid = 1000;
    Pid ownPid = 0;

    std::map<WindowID, SimulatedWindow> windows;
    std::vector<WindowID> stacking; ///< front to back
    WindowID nextWindow = 1;
    int currentSpace = 1;
    bool knowsWindowNumbers = false;

    Pid dockPid = 0; ///< 0 = dead
    std::vector<SimulatedDockItem> dockItems;
    std::uint32_t nextDockItem = 1;
    std::uint32_t hoveredItem = 0; ///< 0 = none
    std::optional<platform::DockEdge> dockEdge = platform::DockEdge::Bottom;
    std::optional<int> dockMagnification;
    std::optional<int> dockAutohide;
    bool isDockHidden = false; ///< slid out of sight; its items keep their places
    std::uint32_t systemUIMode = 0;

    bool tellsSwitcher = true;
    std::optional<std::vector<SimulatedSwitcherEntry>> switcher;
    std::size_t switcherSelection = 0;

    std::vector<QRectF> screens{{0, 0, 1440, 900}};
    bool blendsTranslucency = true;
    int compositorsBegun = 0;
    QPointF pointer{720, 450}; ///< screen coordinates
    /// Where it was before, and until when; the latest first.
    std::vector<std::pair<platform::Seconds, QPointF>> pointerBefore;
    std::uint32_t buttons = 0;
    std::uint32_t leftMouseDowns = 0;
    std::uint32_t modifiers = 0;
    bool isAccessibilityEnabled = true;
    bool isAccessibilityGranted = true; ///< when the program asks for it
    /// Whether a window that is gone still says that it was one, as its last notification needs.
    bool destroyedWindowsTellRole = true;
    /// Commands given to the workspace, such as "launch Music" or "terminate 1003".
    std::vector<QString> commands;

    /// What a port hands out for an entry of one of these lists: the entry is there as long as it
    /// is.
    template <class Subscription, class Entry> struct Registration final : Subscription {
        Registration(SimulatedState& its, std::vector<std::shared_ptr<Entry>>& list, Entry added)
            : state(its), entries(list), entry(std::make_shared<Entry>(std::move(added)))
        {
            const std::lock_guard lock(state.mutex);
            entries.push_back(entry);
        }
        ~Registration() override
        {
            const std::lock_guard lock(state.mutex);
            std::erase(entries, entry);
        }
        SimulatedState& state;
        std::vector<std::shared_ptr<Entry>>& entries;
        const std::shared_ptr<Entry> entry;
    };

    /// Has those who watch the window's picture called, if it has changed, once until a capture.
    void tellPictureWatchers(WindowID number);
    bool drawsPictures = false; ///< onto windows of the toolkit
    std::vector<std::shared_ptr<SimulatedPictureWatch>> pictureWatchers;

    std::vector<std::shared_ptr<SimulatedObservation>> observations;
    std::vector<std::shared_ptr<SimulatedSubscription>> subscriptions;
};

} // namespace lumbrix::test
