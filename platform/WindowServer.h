// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The window server: the windows, their positions, workspaces and pictures; and the screens.
#pragma once

#include <QtCore/QRectF>
#include <QtCore/QSize>
#include <QtCore/QString>
#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QRegion>

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
    int workspace = 0; ///< 0 = unknown or on all workspaces
    bool isOnAllWorkspaces = false;
};
using WindowList = std::vector<WindowInfo>;

enum class WindowListOption : std::uint32_t {
    All = 0,
    ExcludeDesktopElements = 16,
};

/// What a window looks like, as far as that is known at once.
struct KnownPicture {
    QImage image;           ///< null: nothing is known
    bool isCurrent = false; ///< no capture would bring anything else
};

/// A part of one of the toolkit's windows that shows a picture of another window. In pixels of the
/// toolkit's window.
struct PictureSurface {
    std::uintptr_t toolkitWindow = 0;
    bool isTranslucent = false; ///< its pixels have an opacity
    QRect picture;              ///< where the whole picture lies
    QRegion free;               ///< what of it is seen
    QRegion shaded;             ///< of that, where a colour lies over it
    QColor shade;
};
struct PictureDrawing {
    WindowID window = 0;
    PictureSurface surface;
    bool tellsNext = true; ///< false: its next change is not told, as it is sure to come
};

/// Interest in a window's picture, for as long as it exists.
class PictureSubscription
{
public:
    virtual ~PictureSubscription() = default;
};

/// Any thread unless said otherwise. Null for a window that is gone.
class WindowServer
{
public:
    virtual ~WindowServer() = default;

    /// All windows, minimised ones and those of other workspaces included, front to back.
    virtual WindowList copyWindowInfo(WindowListOption option) = 0;
    virtual std::optional<QRectF> windowBounds(WindowID window) = 0;
    /// 1-based; 0 = on all or unknown; null if the window is gone.
    virtual std::optional<int> windowWorkspace(WindowID window) = 0;
    /// Whether the window is known to be on every workspace and so has no workspace number. False
    /// if an adapter cannot distinguish that from an unknown number, and for a window that is gone.
    virtual bool isOnAllWorkspaces(WindowID /*window*/) { return false; }
    /// 1-based; 0 = unknown. Any thread.
    virtual int currentWorkspace() = 0;
    /// The windows of one workspace (1-based); empty if there is no such workspace.
    virtual std::vector<WindowID> workspaceWindowList(int workspace) = 0;

    /// A picture of the whole window; its device pixel ratio is the number of pixels per point.
    /// With a limit (pixels; empty: none) a larger picture is reduced to fit, keeping its aspect
    /// ratio. For a window that is not shown now, the last known picture; null if there is none.
    /// Repeated calls with the same limit for an unchanged window return the same image without
    /// copying.
    virtual QImage captureWindow(WindowID window, QSize limit) = 0;
    /// The same, of a window that changes all the time, at less cost: the picture may be made of
    /// some of its pixels only, and is not the current one then, in what is known either.
    virtual QImage captureMovingWindow(WindowID window, QSize limit)
    {
        return captureWindow(window, limit);
    }
    /// Has the server draw pictures of windows that change all the time onto windows of the
    /// toolkit, in order with what the toolkit paints, at less cost still, as no pixels come here.
    /// They are like those of captureMovingWindow(), in what is known too; what the toolkit paints
    /// there later has to be newer. Waits for nothing once that has worked. Which of them are
    /// drawn; the others are left as they are. Main thread.
    virtual std::vector<bool> drawMovingWindows(const std::vector<PictureDrawing>& drawings)
    {
        return std::vector<bool>(drawings.size());
    }
    /// What is known of it without waiting for any copying, perhaps an old one made to fit.
    virtual KnownPicture knownPicture(WindowID window, QSize limit) = 0;
    /// `changed` is called, on the main thread, whenever the picture is another than the one that
    /// was captured last; soon, if it is so already, and then not again before the next capture.
    /// Called without reason it costs little: capturing gives the same image then. Of a window that
    /// is gone nothing is heard. Never null. Main thread, which also drops the subscription: at any
    /// time, from `changed` too, and nothing is called any more.
    [[nodiscard]] virtual std::unique_ptr<PictureSubscription>
    subscribeToPicture(WindowID window, std::function<void()> changed) = 0;

    /// One line of text for the user: which windows can be neither listed nor captured on this
    /// desktop, and what to do about it. Empty if all can. Main thread.
    virtual QString unseenWindows() { return {}; }

    /// Frames of the screens, the main one first; in accessibility coordinates, so the main one's
    /// top left is (0, 0).
    virtual std::vector<QRectF> screens() = 0;
    /// The offset from accessibility coordinates to the toolkit's global coordinates, for a panel
    /// with these bounds (accessibility coordinates); points.
    virtual QPointF toolkitOffset(const QRectF& bounds) = 0;
    /// Whether translucent pixels of a window are blended with the windows below. If not, panels
    /// must be shaped.
    virtual bool blendsTranslucency() = 0;
    /// How many compositors have begun to run since the program started; one that runs then does
    /// not count. A compositor need not draw windows that were on the screen before it. Any thread.
    virtual int compositorsBegun() { return 0; }
    /// Shows or hides a window that the toolkit has shown before, without waiting and without the
    /// toolkit's knowledge: to the toolkit the window is just covered by others for a while.
    /// Returns false and does nothing if that is not possible. Main thread.
    virtual bool setOnScreen(std::uintptr_t /*toolkitWindow*/, bool /*onScreen*/) { return false; }
    /// Makes a compositor draw the window again. A compositor that was busy while the window was
    /// hidden and shown again may take what was painted since for part of the former content, and
    /// never draw it. Main thread; has no other visible effect.
    virtual void remindCompositor(std::uintptr_t /*toolkitWindow*/) {}
    /// Gives what is typed to a window of the toolkit that is on the screen and that no window
    /// manager knows. Main thread; waits for the server.
    virtual void takeKeyboard(std::uintptr_t /*toolkitWindow*/) {}
    /// Gives it back to whom it was taken from last, unless somebody else has it by now. It is
    /// there when this returns. Main thread.
    virtual void giveKeyboardBack(std::uintptr_t /*toolkitWindow*/) {}
};

} // namespace lumbrix::platform
