// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/X11WindowServer.h"

#include "platform/linux/x11/PointSpace.h"
#include "platform/linux/x11/ScreenWatch.h"
#include "platform/linux/x11/WindowPictures.h"
#include "platform/linux/x11/WindowTracker.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QGuiApplication>

#include <cstdlib>
#include <limits>
#include <memory>
#include <utility>

namespace lumbrix::platform::x11
{
namespace
{

constexpr int dockLayer = 20;
constexpr int floatingLayer = 3;
constexpr int desktopLayer = std::numeric_limits<int>::min() + 20;

int layerOf(WindowType type)
{
    switch (type) {
    case WindowType::Dock:
        return dockLayer;
    case WindowType::Desktop:
        return desktopLayer;
    case WindowType::Other:
        return floatingLayer;
    default:
        return 0;
    }
}

int workspaceOf(const TrackedWindow& window) { return window.desktop < 0 ? 0 : window.desktop + 1; }

/// The toolkit's own connection, where requests stay in order with its moving and painting; null
/// without one.
xcb_connection_t* toolkitConnection()
{
    auto* toolkit = qApp ? qApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return toolkit ? toolkit->connection() : nullptr;
}

} // namespace

X11WindowServer::X11WindowServer(const WindowTracker& tracker, WindowPictures& pictures,
                                 const PointSpace& points, const ScreenWatch& screens,
                                 bool isOfWaylandSession)
    : m_tracker(tracker), m_pictures(pictures), m_points(points), m_screens(screens),
      m_isOfWaylandSession(isOfWaylandSession)
{
}

WindowList X11WindowServer::copyWindowInfo(WindowListOption option)
{
    const int desktop = m_tracker.currentDesktop();
    WindowList list;
    for (const TrackedWindowPtr& window : m_tracker.windows()) {
        if (option == WindowListOption::ExcludeDesktopElements &&
            window->type == WindowType::Desktop)
            continue;
        WindowInfo info;
        info.ownerPid = m_owners ? m_owners->ownerPidOf(*window) : window->pid.value_or(0);
        info.layer = layerOf(window->type);
        info.bounds = m_points.toPoints(window->bounds);
        info.number = window->id;
        info.name = window->title;
        info.isOnscreen = window->isMapped && !window->isIconic &&
                          (window->desktop < 0 || window->desktop == desktop);
        info.workspace = workspaceOf(*window);
        info.isOnAllWorkspaces = window->isOnAllDesktops;
        list.push_back(std::move(info));
    }
    return list;
}

std::optional<QRectF> X11WindowServer::windowBounds(WindowID id)
{
    const TrackedWindowPtr window = m_tracker.window(id);
    return window ? std::optional(m_points.toPoints(window->bounds)) : std::nullopt;
}

std::optional<int> X11WindowServer::windowWorkspace(WindowID id)
{
    const TrackedWindowPtr window = m_tracker.window(id);
    return window ? std::optional(workspaceOf(*window)) : std::nullopt;
}

bool X11WindowServer::isOnAllWorkspaces(WindowID id)
{
    const TrackedWindowPtr window = m_tracker.window(id);
    return window && window->isOnAllDesktops;
}

int X11WindowServer::currentWorkspace() { return m_tracker.currentDesktop() + 1; }

std::vector<WindowID> X11WindowServer::workspaceWindowList(int workspace)
{
    std::vector<WindowID> list;
    if (workspace < 1 || workspace > m_tracker.desktopCount())
        return list;
    for (const TrackedWindowPtr& window : m_tracker.windows()) {
        const int own = workspaceOf(*window);
        if (own == workspace || own == 0) // one on all desktops is on this one too
            list.push_back(window->id);
    }
    return list;
}

QImage X11WindowServer::captureWindow(WindowID window, QSize limit)
{
    return m_pictures.capture(window, limit);
}

QImage X11WindowServer::captureMovingWindow(WindowID window, QSize limit)
{
    return m_pictures.capture(window, limit, true);
}

std::vector<bool> X11WindowServer::drawMovingWindows(const std::vector<PictureDrawing>& drawings)
{
    xcb_connection_t* connection = toolkitConnection();
    return connection ? m_pictures.draw(connection, drawings)
                      : WindowServer::drawMovingWindows(drawings);
}

KnownPicture X11WindowServer::knownPicture(WindowID window, QSize limit)
{
    return m_pictures.known(window, limit);
}

std::unique_ptr<PictureSubscription>
X11WindowServer::subscribeToPicture(WindowID window, std::function<void()> changed)
{
    return m_pictures.subscribe(window, std::move(changed));
}

QString X11WindowServer::unseenWindows()
{
    return m_isOfWaylandSession
               ? QCoreApplication::translate(
                     "WindowServer",
                     "In a Wayland session only programs that use X (by XWayland) have previews, "
                     "and only beside docks that use X too. To have previews of all windows, "
                     "choose an X11 session when you log in.")
               : QString();
}

std::vector<QRectF> X11WindowServer::screens()
{
    std::vector<QRectF> list;
    for (const QRect& screen : m_points.screens())
        list.push_back(m_points.toPoints(screen));
    return list;
}

QPointF X11WindowServer::toolkitOffset(const QRectF& bounds)
{
    return m_points.toolkitOffset(bounds);
}

bool X11WindowServer::blendsTranslucency() { return m_screens.isCompositorRunning(); }

int X11WindowServer::compositorsBegun() { return m_screens.compositorsBegun(); }

/// The toolkit makes two round trips to show a window, each behind whatever the server is doing: a
/// row of windows takes longer to show than to paint. It knows windows that others unmap and map
/// again, as window managers do when they minimise one.
bool X11WindowServer::setOnScreen(std::uintptr_t toolkitWindow, bool onScreen)
{
    xcb_connection_t* connection = toolkitConnection();
    if (!connection || toolkitWindow == XCB_WINDOW_NONE)
        return false;
    const auto window = static_cast<xcb_window_t>(toolkitWindow);
    if (onScreen)
        xcb_map_window(connection, window);
    else
        xcb_unmap_window(connection, window);
    return true;
}

void X11WindowServer::remindCompositor(std::uintptr_t toolkitWindow)
{
    xcb_connection_t* connection = toolkitConnection();
    if (!connection || toolkitWindow == XCB_WINDOW_NONE)
        return;
    // A pixel that is copied onto itself is damage, and nothing else.
    const auto window = static_cast<xcb_window_t>(toolkitWindow);
    const xcb_gcontext_t context = xcb_generate_id(connection);
    const std::uint32_t noExposures = 0;
    xcb_create_gc(connection, context, window, XCB_GC_GRAPHICS_EXPOSURES, &noExposures);
    xcb_copy_area(connection, window, window, context, 0, 0, 0, 0, 1, 1);
    xcb_free_gc(connection, context);
    xcb_flush(connection);
}

namespace
{
xcb_window_t focusedWindow(xcb_connection_t* connection)
{
    const std::unique_ptr<xcb_get_input_focus_reply_t, decltype(&std::free)> reply(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr),
        &std::free);
    return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

/// Whether that went well: a window that is off the screen, or gone, cannot have it. Of the present
/// moment, as the toolkit may not have heard of the user for long.
bool setFocus(xcb_connection_t* connection, xcb_window_t window)
{
    const xcb_void_cookie_t cookie = xcb_set_input_focus_checked(
        connection, XCB_INPUT_FOCUS_POINTER_ROOT, window, XCB_CURRENT_TIME);
    xcb_generic_error_t* error = xcb_request_check(connection, cookie);
    const bool isSet = !error;
    std::free(error);
    return isSet;
}
} // namespace

void X11WindowServer::takeKeyboard(std::uintptr_t toolkitWindow)
{
    xcb_connection_t* connection = toolkitConnection();
    if (!connection || toolkitWindow == XCB_WINDOW_NONE)
        return;
    const auto window = static_cast<xcb_window_t>(toolkitWindow);
    const xcb_window_t before = focusedWindow(connection);
    if (before != window && setFocus(connection, window))
        m_focusBefore = before;
}

void X11WindowServer::giveKeyboardBack(std::uintptr_t toolkitWindow)
{
    xcb_connection_t* connection = toolkitConnection();
    const xcb_window_t before = std::exchange(m_focusBefore, 0U);
    if (!connection || before == XCB_WINDOW_NONE || focusedWindow(connection) != toolkitWindow)
        return;
    if (!setFocus(connection, before))
        setFocus(connection, XCB_INPUT_FOCUS_POINTER_ROOT);
}

} // namespace lumbrix::platform::x11
