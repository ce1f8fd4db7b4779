// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/LinuxDockPreferences.h"

namespace lumbrix::platform
{

std::optional<QString> LinuxDockPreferences::orientation()
{
    const DockStatePtr dock = m_docks.currentDock();
    if (!dock) {
        return std::nullopt;
    }
    switch (dock->edge) {
    case DockEdge::Left:
        return QStringLiteral("left");
    case DockEdge::Right:
        return QStringLiteral("right");
    case DockEdge::Top:
        return QStringLiteral("top");
    case DockEdge::Bottom:
        break;
    }
    return QStringLiteral("bottom");
}

std::optional<int> LinuxDockPreferences::magnification()
{
    const DockStatePtr dock = m_docks.currentDock();
    return dock ? std::optional(dock->magnifies ? 1 : 0) : std::nullopt;
}

std::optional<int> LinuxDockPreferences::autohide()
{
    const DockStatePtr dock = m_docks.currentDock();
    return dock ? std::optional(dock->hides ? 1 : 0) : std::nullopt;
}

} // namespace lumbrix::platform
