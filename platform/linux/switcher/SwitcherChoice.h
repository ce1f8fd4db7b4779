// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which window is selected in a switcher, from what is to be seen of it.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>

#include <vector>

#include "platform/linux/x11/TrackedWindow.h"

namespace lumbrix::platform
{

/// The windows that an outline may be drawn about: those whose frames are exactly there, else those
/// whose frames are so but for an invisible border.
std::vector<xcb_window_t> windowsOutlinedBy(const QRect& outline,
                                            const std::vector<x11::TrackedWindowPtr>& windows);

/// Whether a switcher would write this for a window of that title; minimised ones are in brackets.
bool isTitleOf(const QString& written, const QString& title);

/// The candidate that is so many steps after `from` in the ring, or before it, or the next one in
/// that direction; 0 is for an unknown number of steps forwards. A candidate that is not in the
/// ring when none is there; XCB_NONE without candidates.
xcb_window_t nextInRing(const std::vector<xcb_window_t>& ring, xcb_window_t from, int steps,
                        const std::vector<xcb_window_t>& candidates);

} // namespace lumbrix::platform
