// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Has the preferences, alerts and menus be light or dark as the desktop is.
#pragma once

#include <QtGui/QPalette>

#include "platform/DesktopLook.h"

namespace lumbrix
{

/// Colours for a desktop that is dark.
QPalette darkPalette();

/// Main thread, for as long as the program's windows follow the desktop. Where the toolkit's own
/// theme is dark already, its colours stay. Previews have colours of their own.
class DesktopPalette
{
public:
    /// The port outlives it.
    explicit DesktopPalette(platform::DesktopLook& look);
    ~DesktopPalette();
    DesktopPalette(const DesktopPalette&) = delete;
    DesktopPalette& operator=(const DesktopPalette&) = delete;

private:
    void follow(bool isDark);

    platform::DesktopLook& m_look;
    bool m_isOurs = false; ///< the toolkit has our dark colours
};

} // namespace lumbrix
