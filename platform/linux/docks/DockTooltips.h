// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Docks name the icon under the pointer in a tooltip right where previews come up, and after them.
#pragma once

#include <functional>

#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform
{

/// Puts a dock's tooltip below this program's panels. Both outlive it; event thread.
class DockTooltips final : public x11::WindowListener
{
public:
    using IsDock = std::function<bool(std::int32_t pid)>;

    DockTooltips(const x11::Connection& connection, std::int32_t ownPid, IsDock isDock);
    void popupMapped(const x11::PopupMapped& popup) override;

private:
    xcb_window_t clientOf(xcb_window_t window) const;
    xcb_window_t lowestOwnPanel() const;

    const x11::Connection& m_connection;
    const std::int32_t m_ownPid;
    const IsDock m_isDock;
    xcb_window_t m_ownClient = XCB_NONE; ///< what all our windows' ids have in common
};

} // namespace lumbrix::platform
