// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <xcb/xcb.h>

#include "Display.h"

namespace lumbrix::privatedesk
{

/// The settings daemon of a desktop, which tells running programs how large text is. Main thread.
/// Ends with its owner; the display outlives it.
class FontSettings
{
public:
    explicit FontSettings(Display& display);
    ~FontSettings();
    FontSettings(const FontSettings&) = delete;
    FontSettings& operator=(const FontSettings&) = delete;

    void setDotsPerInch(int dots);

private:
    Display& m_display;
    xcb_connection_t* const m_connection;
    const xcb_window_t m_window;
    std::uint32_t m_serial = 0;
};

} // namespace lumbrix::privatedesk
