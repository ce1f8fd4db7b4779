// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Reads the switchers of the known window managers from their windows.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform
{

/// The visible parts of an open switcher, in root pixels.
struct SwitcherSight {
    QRect list;    ///< frame of the list of windows; empty if there is none
    QRect outline; ///< around the frame of the selected window; empty if there is none

    bool operator==(const SwitcherSight&) const = default;
};

struct SwitcherReader {
    const char* manager; ///< name of the window manager
    /// Null while the switcher is not open.
    std::optional<SwitcherSight> (*look)(const std::vector<x11::ManagerWindow>& windows);
    /// The accessibility role (its number) of the element with the selected window's title; 0 if
    /// there is none.
    std::uint32_t titleRole;
    /// True if the selection is not visible and must be found by counting keys, see SwitcherSteps.
    bool isCounted;
};

/// Immutable; null for a window manager whose switcher cannot be read.
const SwitcherReader* switcherReaderFor(const QString& manager);

} // namespace lumbrix::platform
