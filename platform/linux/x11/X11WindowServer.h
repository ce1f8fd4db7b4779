// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The window server of an X11 display: a view of the tracked windows in points.
#pragma once

#include <cstdint>

#include "platform/WindowServer.h"
#include "platform/linux/x11/TrackedWindow.h"

namespace lumbrix::platform::x11
{

class PointSpace;
class ScreenWatch;
class WindowPictures;
class WindowTracker;

/// Returns the process id to report for a window. Several processes of one application are reported
/// as one, so it is not always the window's own. Any thread.
class OwnerPids
{
public:
    virtual ~OwnerPids() = default;
    virtual std::int32_t ownerPidOf(const TrackedWindow& window) const = 0;
};

class X11WindowServer final : public WindowServer
{
public:
    X11WindowServer(const WindowTracker& tracker, WindowPictures& pictures,
                    const PointSpace& points, const ScreenWatch& screens, bool isOfWaylandSession);

    /// Until it is set, windows are reported with their own process id, or 0. It must outlive the
    /// use of this object. Must be set before other threads use this.
    void setOwnerPids(const OwnerPids* owners) { m_owners = owners; }

    WindowList copyWindowInfo(WindowListOption option) override;
    std::optional<QRectF> windowBounds(WindowID window) override;
    std::optional<int> windowWorkspace(WindowID window) override;
    bool isOnAllWorkspaces(WindowID window) override;
    int currentWorkspace() override;
    std::vector<WindowID> workspaceWindowList(int workspace) override;
    QImage captureWindow(WindowID window, QSize limit) override;
    QImage captureMovingWindow(WindowID window, QSize limit) override;
    std::vector<bool> drawMovingWindows(const std::vector<PictureDrawing>& drawings) override;
    KnownPicture knownPicture(WindowID window, QSize limit) override;
    std::unique_ptr<PictureSubscription> subscribeToPicture(WindowID window,
                                                            std::function<void()> changed) override;
    QString unseenWindows() override;
    std::vector<QRectF> screens() override;
    QPointF toolkitOffset(const QRectF& bounds) override;
    bool blendsTranslucency() override;
    int compositorsBegun() override;
    bool setOnScreen(std::uintptr_t toolkitWindow, bool onScreen) override;
    void remindCompositor(std::uintptr_t toolkitWindow) override;
    void takeKeyboard(std::uintptr_t toolkitWindow) override;
    void giveKeyboardBack(std::uintptr_t toolkitWindow) override;

private:
    const WindowTracker& m_tracker;
    WindowPictures& m_pictures;
    const PointSpace& m_points;
    const ScreenWatch& m_screens;
    const bool m_isOfWaylandSession;
    const OwnerPids* m_owners = nullptr;
    std::uint32_t m_focusBefore = 0; ///< who had the keyboard when it was taken; main thread
};

} // namespace lumbrix::platform::x11
