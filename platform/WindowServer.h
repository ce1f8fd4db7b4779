// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The window server: which windows are on screen, where, on which workspace, and what they look
// like; and the screens themselves.
#pragma once

#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/WindowID.h"

namespace lumbrix::platform
{

/// One entry of the window list. Bounds are in accessibility coordinates: origin at the top left of
/// the main screen, y downward, points.
struct WindowInfo {
    std::int32_t ownerPid = 0;
    int layer = 0; ///< 0 = an ordinary application window
    QRectF bounds;
    WindowID number = 0;
    QString name;
    bool isOnscreen = false;
    int workspace = 0; ///< 0 = unknown or on all
    bool isOnAllWorkspaces = false;
};
using WindowList = std::vector<WindowInfo>;

enum class WindowListOption : std::uint32_t {
    All = 0,
    ExcludeDesktopElements = 16,
};

/// Any thread, unless said otherwise. A window that is gone gives null.
class WindowServer
{
public:
    virtual ~WindowServer() = default;

    /// All windows, minimised ones and those of other workspaces included, front to back.
    virtual WindowList copyWindowInfo(WindowListOption option) = 0;
    virtual std::optional<QRectF> windowBounds(WindowID window) = 0;
    /// 1-based; 0 = on all or unknown; null when the window is gone.
    virtual std::optional<int> windowWorkspace(WindowID window) = 0;
    /// Whether the window is known to be on every workspace, so that it has no number of one. False
    /// where an adapter cannot tell that from a number it does not know, and for a window that is
    /// gone.
    virtual bool isOnAllWorkspaces(WindowID /*window*/) { return false; }
    /// The windows of one workspace (1-based); empty when there is no such workspace.
    virtual std::vector<WindowID> workspaceWindowList(int workspace) = 0;

    /// A picture of the whole window; its device pixel ratio tells the pixels of a point. With a
    /// limit (pixels; empty: none) a larger one is reduced, in its own proportions, to the size
    /// that just fits. The last known picture of a window that is not shown now; null when there is
    /// none. Repeated calls with one limit for a window that did not change give the same image
    /// without copying anything.
    virtual QImage captureWindow(WindowID window, QSize limit) = 0;
    /// The same if it can be had without waiting for any copying, else nothing: captureWindow() on
    /// another thread brings it then.
    virtual std::optional<QImage> pictureAtHand(WindowID window, QSize limit)
    {
        return captureWindow(window, limit);
    }

    /// Which of the user's windows can be neither seen nor pictured on this desktop, and what to do
    /// about it: one line in words for the user. Empty where all can. Main thread.
    virtual QString unseenWindows() { return {}; }

    /// Frames of the screens, the main one first; in accessibility coordinates, so the main one's
    /// top left is (0, 0).
    virtual std::vector<QRectF> screens() = 0;
    /// What leads from accessibility coordinates to the toolkit's global ones, for a panel with
    /// these bounds (accessibility coordinates); points.
    virtual QPointF toolkitOffset(const QRectF& bounds) = 0;
    /// Whether translucent pixels of a window are blended with what lies below. Where they are
    /// not, panels have to be shaped.
    virtual bool blendsTranslucency() = 0;
    /// Puts a window of the toolkit, which has shown it before, onto the screen or takes it off
    /// without waiting for anything, behind the toolkit's back: to the toolkit it is one that
    /// others cover for a while. False, and nothing happens, where that cannot be done. Main
    /// thread.
    virtual bool setOnScreen(std::uintptr_t /*toolkitWindow*/, bool /*onScreen*/) { return false; }
    /// Reminds a compositor that the window has something to show. One that was busy while a window
    /// went off the screen and came back may count what was painted since as part of the former
    /// showing, and never draw it. Main thread; changes nothing on the screen otherwise.
    virtual void remindCompositor(std::uintptr_t /*toolkitWindow*/) {}
    /// Gives what is typed to a window of the toolkit that is on the screen and that no window
    /// manager knows. Main thread; waits for the server.
    virtual void takeKeyboard(std::uintptr_t /*toolkitWindow*/) {}
    /// Gives it back to whom it was taken from last, unless somebody else has it by now. It is
    /// there when this returns. Main thread.
    virtual void giveKeyboardBack(std::uintptr_t /*toolkitWindow*/) {}
};

} // namespace lumbrix::platform
