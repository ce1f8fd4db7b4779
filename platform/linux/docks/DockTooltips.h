// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Docks show a tooltip for the icon under the pointer, and some a preview of their own, exactly
// where our previews appear.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>

#include <map>
#include <optional>
#include <set>

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform
{

/// Moves such a window of a dock off the screen while this program's previews overlap it. Moves it
/// back when they disappear or the dock hides it, so that the dock finds it where it left it.
/// Windows that do not overlap the previews stay. Connection and tracker must outlive it; event
/// thread.
class DockTooltips final : public x11::WindowListener
{
public:
    DockTooltips(const x11::Connection& connection, const x11::WindowTracker& tracker,
                 std::int32_t ownPid);
    void popupMapped(const x11::PopupMapped& popup) override;
    void popupMoved(xcb_window_t window) override;
    void popupUnmapped(xcb_window_t window) override;
    void pointerMoved(QPoint position, xcb_window_t childOfRoot) override;
    void buttonPressed(int button, QPoint position) override;

private:
    /// By window: its owner's position for it while it is off the screen.
    using Shown = std::map<xcb_window_t, std::optional<QPoint>>;

    void arrange();
    /// Where the panel is; null for what is no part of a row.
    std::optional<QRect> placeInRow(xcb_window_t window) const;
    /// The clients of the nested windows under the pointer, if these belong to a dock.
    std::set<std::uint32_t> dockClientsUnderPointer() const;
    std::optional<QRect> placeOf(xcb_window_t window) const;
    void move(xcb_window_t window, QPoint to) const;

    const x11::Connection& m_connection;
    const x11::WindowTracker& m_tracker;
    const std::int32_t m_ownPid;
    const xcb_atom_t m_role;
    QPoint m_pointer;
    std::optional<QPoint> m_press; ///< the last one
    Shown m_shown;
    std::map<xcb_window_t, QRect> m_row; ///< our panels that are mapped
};

} // namespace lumbrix::platform
