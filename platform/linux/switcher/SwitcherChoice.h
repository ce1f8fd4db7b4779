// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Determines the selected window of a switcher from what it shows.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>

#include <vector>

#include "platform/linux/x11/TrackedWindow.h"

namespace lumbrix::platform
{

/// The windows that an outline may belong to: those with exactly this frame, otherwise those whose
/// frame matches except for an invisible border.
std::vector<xcb_window_t> windowsOutlinedBy(const QRect& outline,
                                            const std::vector<x11::TrackedWindowPtr>& windows);

/// Whether a switcher would show this text for a window with that title; minimised ones are in
/// brackets.
bool isTitleOf(const QString& written, const QString& title);

/// The candidate that is `steps` after `from` in the ring (negative: before it), or the next
/// candidate in that direction; 0 means an unknown number of steps forwards. If no candidate is in
/// the ring, one that is not; XCB_NONE if there are no candidates.
xcb_window_t nextInRing(const std::vector<xcb_window_t>& ring, xcb_window_t from, int steps,
                        const std::vector<xcb_window_t>& candidates);

} // namespace lumbrix::platform
