// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "FontSettings.h"

#include <cstring>

namespace lumbrix::privatedesk
{

FontSettings::FontSettings(Display& display)
    : m_display(display), m_connection(xcb_connect(display.name().constData(), nullptr)),
      m_window(xcb_generate_id(m_connection))
{
    xcb_create_window(m_connection, 0, m_window, display.root(), -1, -1, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
}

FontSettings::~FontSettings() { xcb_disconnect(m_connection); }

void FontSettings::setDotsPerInch(int dots)
{
    constexpr char name[] = "Xft/DPI";
    struct {
        std::uint32_t order = 0;
        std::uint32_t serial = 0;
        std::uint32_t count = 1;
        std::uint16_t type = 0; // a number
        std::uint16_t nameLength = sizeof name - 1;
        char text[sizeof name] = {};
        std::uint32_t settingSerial = 0;
        std::int32_t value = 0;
    } setting;
    std::memcpy(setting.text, name, sizeof name); // its last character is the padding
    setting.value = dots * 1024;
    setting.serial = setting.settingSerial = ++m_serial;
    const xcb_atom_t property = m_display.atom("_XSETTINGS_SETTINGS");
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_window, property, property, 8,
                        sizeof setting, &setting);
    const xcb_atom_t selection = m_display.atom("_XSETTINGS_S0");
    xcb_set_selection_owner(m_connection, m_window, selection, XCB_CURRENT_TIME);
    xcb_client_message_event_t arrival{};
    arrival.response_type = XCB_CLIENT_MESSAGE;
    arrival.format = 32;
    arrival.window = m_display.root();
    arrival.type = m_display.atom("MANAGER");
    arrival.data.data32[1] = selection;
    arrival.data.data32[2] = m_window;
    xcb_send_event(m_connection, 0, m_display.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&arrival));
    xcb_flush(m_connection);
}

} // namespace lumbrix::privatedesk
