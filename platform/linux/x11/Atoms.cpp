// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/Atoms.h"

#include "platform/linux/x11/Connection.h"

#include <string>

namespace lumbrix::platform::x11
{
namespace
{

constexpr std::size_t count = static_cast<std::size_t>(AtomName::Count);

/// In the order of AtomName; the last three get their screen's number.
constexpr std::array<const char*, count> names{
    "COMPOUND_TEXT",
    "_LUMBRIX_TIMESTAMP",
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_CLOSE_WINDOW",
    "_NET_CURRENT_DESKTOP",
    "_NET_FRAME_EXTENTS",
    "_NET_NUMBER_OF_DESKTOPS",
    "_NET_SUPPORTED",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_DESKTOP",
    "_NET_WM_ICON_GEOMETRY",
    "_NET_WM_NAME",
    "_NET_WM_PID",
    "_NET_WM_PING",
    "_NET_WM_STATE",
    "_NET_WM_STATE_FULLSCREEN",
    "_NET_WM_STATE_HIDDEN",
    "_NET_WM_STATE_MODAL",
    "_NET_WM_STATE_SHADED",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_STRUT",
    "_NET_WM_STRUT_PARTIAL",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU",
    "_NET_WM_WINDOW_TYPE_MENU",
    "_NET_WM_WINDOW_TYPE_NORMAL",
    "_NET_WM_WINDOW_TYPE_NOTIFICATION",
    "_NET_WM_WINDOW_TYPE_POPUP_MENU",
    "_NET_WM_WINDOW_TYPE_SPLASH",
    "_NET_WM_WINDOW_TYPE_TOOLBAR",
    "_NET_WM_WINDOW_TYPE_TOOLTIP",
    "_NET_WM_WINDOW_TYPE_UTILITY",
    "_GTK_FRAME_EXTENTS",
    "_KDE_NET_WM_STATE_SKIP_SWITCHER",
    "UTF8_STRING",
    "WM_CHANGE_STATE",
    "WM_DELETE_WINDOW",
    "WM_PROTOCOLS",
    "WM_STATE",
    "_XSETTINGS_SETTINGS",
    "_NET_WM_CM_S",
    "_NET_SYSTEM_TRAY_S",
    "_XSETTINGS_S",
};
static_assert(names.back() != nullptr);

} // namespace

Atoms::Atoms(const Connection& connection)
{
    std::array<xcb_intern_atom_cookie_t, count> cookies{};
    for (std::size_t i = 0; i < count; ++i) {
        std::string name = names[i];
        if (i >= static_cast<std::size_t>(AtomName::CompositingManager))
            name += std::to_string(connection.screenNumber());
        cookies[i] = xcb_intern_atom(connection.get(), 0, static_cast<std::uint16_t>(name.size()),
                                     name.c_str());
    }
    for (std::size_t i = 0; i < count; ++i)
        if (const auto reply = connection.reply(xcb_intern_atom_reply, cookies[i]))
            m_atoms[i] = reply->atom;
}

} // namespace lumbrix::platform::x11
