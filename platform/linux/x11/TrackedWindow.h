// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A snapshot of one managed top-level window, updated by property and configure events, so that
// reading it needs no round trip.
#pragma once

#include <QtCore/QMargins>
#include <QtCore/QRect>
#include <QtCore/QString>

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>
#include <optional>

namespace lumbrix::platform::x11
{

enum class WindowType { Normal, Dialog, Utility, Toolbar, Splash, Dock, Desktop, Other };

/// Immutable; replaced as a whole when something changed. Geometry is in root-window pixels.
struct TrackedWindow {
    xcb_window_t id = XCB_NONE;
    xcb_window_t frame = XCB_NONE; ///< the child of the root that holds it; `id` without a frame
    QRect bounds;                  ///< of the frame, without what is not drawn in it
    QMargins decorations;          ///< around `bounds`, seen but not drawn in the frame
    QRect frameBounds;             ///< of the frame as a whole, invisible borders included
    QString title;                 ///< valid UTF-16, at most 4096 characters; may be empty
    QString classInstance;
    QString className;
    std::optional<std::int32_t> pid; ///< _NET_WM_PID, otherwise as the server reports
    WindowType type = WindowType::Normal;
    bool skipTaskbar = false;
    bool skipSwitcher = false; ///< hint to leave it out, known to KWin only
    bool isModal = false;      ///< of what it is transient for
    bool isIconic = false;
    bool isFullscreen = false;
    bool isMapped = false;  ///< its frame is; also true of a shaded window
    bool canDelete = false; ///< takes part in WM_DELETE_WINDOW
    /// 0-based; −1 = on all desktops or unknown.
    int desktop = -1;
    bool isOnAllDesktops = false;
    xcb_window_t transientFor = XCB_NONE;
    /// The rectangle in which a dock shows this window, as last written to the window.
    std::optional<QRect> iconGeometry;
    /// Incremented by every write of iconGeometry; with the time of the write, on a monotonic clock
    /// in milliseconds.
    std::uint64_t iconGeometrySerial = 0;
    std::int64_t iconGeometryTime = 0;
    // Of docks only.
    std::optional<QMargins>
        strut;                ///< reserved at the edges of the screen; null without such a word
    int resizeStep = 0;       ///< the increment of its size, the same both ways; 0 = none
    bool isResponding = true; ///< false while a ping is unanswered for over 0.2 s

    bool operator==(const TrackedWindow&) const = default;
};
using TrackedWindowPtr = std::shared_ptr<const TrackedWindow>;

} // namespace lumbrix::platform::x11
