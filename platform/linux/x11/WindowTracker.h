// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The managed windows of the display, kept current by the event thread.
#pragma once

#include <span>
#include <vector>

#include "platform/linux/x11/TrackedWindow.h"

namespace lumbrix::platform::x11
{

/// An override-redirect window (a menu, a tooltip) that was mapped.
struct PopupMapped {
    enum class Kind { Menu, Tooltip, Other };
    xcb_window_t id = XCB_NONE;
    Kind kind = Kind::Other;
    std::optional<std::int32_t> pid;
};

/// A window of the window manager itself: its switcher, an outline.
struct ManagerWindow {
    xcb_window_t id = XCB_NONE;
    QRect rect; ///< root pixels
    int depth = 0;
    QString classInstance;
    bool isPlain = true; ///< has no window type, or the normal one

    bool operator==(const ManagerWindow&) const = default;
};

/// Which keys are reported to listeners: none, those pressed while Alt or Super is held, or all.
enum class KeyHearing { None, WithModifier, All };

/// The running window manager and the windows that it shows itself; empty if there is none.
struct Manager {
    QString name;
    std::int32_t pid = 0;
    std::vector<ManagerWindow> windows; ///< the oldest first
};

/// Callbacks of the event thread; every call is on the event thread, without a lock held, and must
/// not block. `before` and `after` are snapshots.
class WindowListener
{
public:
    virtual ~WindowListener() = default;
    virtual void windowAdded(const TrackedWindowPtr&) {}
    virtual void windowChanged(const TrackedWindowPtr& /*before*/,
                               const TrackedWindowPtr& /*after*/)
    {
    }
    virtual void windowRemoved(const TrackedWindowPtr& /*last*/) {}
    virtual void activeWindowChanged(xcb_window_t) {}
    virtual void currentDesktopChanged(int /*0-based*/) {}
    virtual void popupMapped(const PopupMapped&) {}
    /// An override-redirect window was moved, resized or restacked, mapped or not.
    virtual void popupMoved(xcb_window_t) {}
    /// A child of the root was unmapped or destroyed; it may be a managed one.
    virtual void popupUnmapped(xcb_window_t) {}
    /// The pointer moved to these root pixels, over this child of the root (XCB_NONE: the root).
    virtual void pointerMoved(QPoint, xcb_window_t /*childOfRoot*/) {}
    /// Told after pointerMoved, perhaps again and again: the pointer rests there, or its pace shows
    /// that it is about to, at these root pixels; it may be on its way still.
    virtual void pointerStops(QPoint) {}
    /// A mouse button went down anywhere; 1 left, 2 middle, 3 right.
    virtual void buttonPressed(int /*button*/, QPoint) {}
    /// A key was pressed anywhere, with or without Shift; only while keys are requested. The symbol
    /// is that of the key without modifiers.
    virtual void keyPressed(xcb_keysym_t, bool /*withShift*/) {}
    /// Called when a reported key is released after it was held long enough to repeat; the repeats
    /// are not reported.
    virtual void keyRepeated(xcb_keysym_t) {}
    /// Another window manager runs, or the windows that it shows itself have changed. Also called
    /// once at the start.
    virtual void managerChanged(const Manager&) {}
    virtual void screensChanged() {}
    virtual void compositorChanged(bool /*running*/) {}
};

/// Any thread. Listeners must be added before the event thread starts, and must outlive it.
class WindowTracker
{
public:
    virtual ~WindowTracker() = default;
    virtual void addListener(WindowListener* listener) = 0;
    /// Null if it is not a managed window (any more).
    virtual TrackedWindowPtr window(xcb_window_t id) const = 0;
    /// All managed windows, docks and desktops included, topmost first.
    virtual std::vector<TrackedWindowPtr> windows() const = 0;
    /// Those of these windows that are managed, topmost first.
    virtual std::vector<TrackedWindowPtr> windows(std::span<const xcb_window_t> ids) const = 0;
    virtual xcb_window_t activeWindow() const = 0;
    virtual int currentDesktop() const = 0; ///< 0-based
    virtual int desktopCount() const = 0;

    // Requests to the window manager and to clients. They return at once; failures are silent.
    virtual void activate(xcb_window_t id) = 0; ///< to the front, with its desktop if need be
    virtual void close(xcb_window_t id) = 0;    ///< as its close button would
    virtual void iconify(xcb_window_t id) = 0;
    virtual void deiconify(xcb_window_t id) = 0;
    /// Pings the client; the result is in isResponding.
    virtual void ping(xcb_window_t id) = 0;
};

} // namespace lumbrix::platform::x11
