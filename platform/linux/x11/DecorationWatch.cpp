// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/DecorationWatch.h"

#include "platform/StringLiterals.h"
#include "platform/linux/x11/ScreenWatch.h"
#include "platform/linux/x11/X11WindowTracker.h"

namespace lumbrix::platform::x11
{

void DecorationWatch::managerChanged(const Manager& manager)
{
    m_isKWin = manager.name == u"KWin"_s;
    tell();
}

void DecorationWatch::tell()
{
    m_tracker.setDecorationsComposed(m_isKWin && m_screens.isCompositorRunning());
}

} // namespace lumbrix::platform::x11
