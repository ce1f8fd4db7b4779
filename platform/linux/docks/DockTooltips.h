// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Docks name the icon under the pointer in a tooltip, and some show a preview of their own, right
// where our previews come up.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>

#include <map>
#include <optional>
#include <set>
#include <vector>

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform
{

/// Moves what a dock shows for the icon under the pointer off the screen while this program's
/// previews are in its place, and back when they go or when the dock takes it down, so that the
/// dock finds it where it left it. What does not touch the previews stays. Connection and tracker
/// outlive it; event thread.
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
    /// By window: where its owner has it while it is off the screen.
    using Shown = std::map<xcb_window_t, std::optional<QPoint>>;

    bool isOwn(xcb_window_t window) const;
    void arrange();
    std::vector<QRect> row() const;
    /// The programs of the windows under the pointer, one within another, if these are a dock's.
    std::set<std::uint32_t> dockClientsUnderPointer() const;
    std::optional<QRect> placeOf(xcb_window_t window) const;
    void move(xcb_window_t window, QPoint to) const;

    const x11::Connection& m_connection;
    const x11::WindowTracker& m_tracker;
    const std::int32_t m_ownPid;
    const xcb_atom_t m_role;
    std::uint32_t m_ownClient = 0; ///< what all our windows' ids have in common
    QPoint m_pointer;
    std::optional<QPoint> m_press; ///< the last one
    Shown m_shown;
};

} // namespace lumbrix::platform
