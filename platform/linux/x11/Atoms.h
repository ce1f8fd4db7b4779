// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The atoms the adapter uses, interned in one batch.
#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstddef>

namespace lumbrix::platform::x11
{

class Connection;

enum class AtomName : std::size_t {
    CompoundText,
    LumbrixTimestamp,
    NetActiveWindow,
    NetClientList,
    NetClientListStacking,
    NetCloseWindow,
    NetCurrentDesktop,
    NetFrameExtents,
    NetNumberOfDesktops,
    NetSupported,
    NetSupportingWmCheck,
    NetWmDesktop,
    NetWmIconGeometry,
    NetWmName,
    NetWmPid,
    NetWmPing,
    NetWmState,
    NetWmStateFullscreen,
    NetWmStateHidden,
    NetWmStateModal,
    NetWmStateShaded,
    NetWmStateSkipTaskbar,
    NetWmStrut,
    NetWmStrutPartial,
    NetWmWindowType,
    NetWmWindowTypeDesktop,
    NetWmWindowTypeDialog,
    NetWmWindowTypeDock,
    NetWmWindowTypeDropdownMenu,
    NetWmWindowTypeMenu,
    NetWmWindowTypeNormal,
    NetWmWindowTypeNotification,
    NetWmWindowTypePopupMenu,
    NetWmWindowTypeSplash,
    NetWmWindowTypeToolbar,
    NetWmWindowTypeTooltip,
    NetWmWindowTypeUtility,
    GtkFrameExtents,
    KdeNetWmStateSkipSwitcher,
    Utf8String,
    WmChangeState,
    WmDeleteWindow,
    WmProtocols,
    WmState,
    DaemonSettings,     ///< what the owner of SettingsDaemon tells
    CompositingManager, ///< the selection a compositor owns on this connection's screen
    SystemTray,         ///< the selection a system tray owns there
    SettingsDaemon,     ///< the selection a settings daemon owns there
    Count,
};

/// Immutable once made; any thread. Atoms belong to the server: all connections share them.
class Atoms
{
public:
    /// A round trip. An atom that could not be interned is XCB_NONE.
    explicit Atoms(const Connection& connection);
    /// Each by the number that it has; no server is asked.
    using Numbers = std::array<xcb_atom_t, static_cast<std::size_t>(AtomName::Count)>;
    explicit Atoms(const Numbers& numbers) : m_atoms(numbers) {}
    xcb_atom_t operator[](AtomName name) const { return m_atoms[static_cast<std::size_t>(name)]; }

private:
    Numbers m_atoms{};
};

} // namespace lumbrix::platform::x11
