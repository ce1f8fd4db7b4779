// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The Dock's own preferences, read only.
#pragma once

#include <QtCore/QString>

#include <optional>

namespace lumbrix::platform
{

/// Main thread. Values are as the Dock stores them; null when the Dock does not say.
class DockPreferences
{
public:
    virtual ~DockPreferences() = default;
    /// Makes the reads that follow see the Dock's present values.
    virtual void synchronize() = 0;
    /// "bottom", "left" or "right"; a Dock elsewhere gives another word.
    virtual std::optional<QString> orientation() = 0;
    /// 1 = icons grow under the pointer.
    virtual std::optional<int> magnification() = 0;
    /// 1 = the Dock hides.
    virtual std::optional<int> autohide() = 0;
    /// Whether the places of the Dock's items are told as they will be once it rests, also while it
    /// grows or slides. Else they have to be waited for.
    virtual bool tellsFinalPlaces() = 0;
};

} // namespace lumbrix::platform
