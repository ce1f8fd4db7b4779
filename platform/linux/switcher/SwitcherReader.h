// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How the window switchers of the known window managers look from outside.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>

#include <cstdint>
#include <optional>
#include <vector>

#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform
{

/// What there is to see of a switcher that is up, in root pixels.
struct SwitcherSight {
    QRect list;    ///< where it lists the windows; empty when it shows no list
    QRect outline; ///< about the frame of the selected window; empty when it draws none

    bool operator==(const SwitcherSight&) const = default;
};

struct SwitcherReader {
    const char* manager; ///< what the window manager calls itself
    /// Null while the switcher is not up.
    std::optional<SwitcherSight> (*look)(const std::vector<x11::ManagerWindow>& windows);
    /// The role, as assistive technology numbers them, of what shows the title of the selected
    /// window; 0 where nothing does.
    std::uint32_t titleRole;
    /// It shows nothing of the selection: that is found by counting keys, see SwitcherSteps.
    bool isCounted;
};

/// Immutable; null for a window manager whose switcher shows nothing that can be read.
const SwitcherReader* switcherReaderFor(const QString& manager);

} // namespace lumbrix::platform
