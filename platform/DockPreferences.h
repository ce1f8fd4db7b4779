// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The preferences of the Dock, or of the one of several docks that has an item; read only.
#pragma once

#include <QtCore/QString>

#include <optional>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/DockEdge.h"

namespace lumbrix::platform
{

/// What a dock shows by itself for the icon under the pointer.
struct DockDisplay {
    enum class Kind { Tooltip, Preview };
    Kind kind = Kind::Tooltip;
    bool isKnownOn = false; ///< else it may be off
    QString setting;        ///< what turns it off, for the user to read; empty when nothing does
};

/// Main thread. Asked of the Dock that has the item; for a null item, of the first that has any.
/// Values are as that Dock stores them; null when it does not say.
class DockPreferences
{
public:
    virtual ~DockPreferences() = default;
    /// Makes the reads that follow see the Dock's present values.
    virtual void synchronize() = 0;
    /// The edge of the screen that it is at, or nearest to; the bottom where it does not say, null
    /// where it names what is no edge.
    virtual std::optional<DockEdge> orientation(const ElementRef& item) = 0;
    /// 1 = icons grow under the pointer.
    virtual std::optional<int> magnification(const ElementRef& item) = 0;
    /// 1 = the Dock hides.
    virtual std::optional<int> autohide(const ElementRef& item) = 0;
    /// Whether the places of the Dock's items are told as they will be once it rests, also while it
    /// grows or slides. Else they have to be waited for.
    virtual bool tellsFinalPlaces() = 0;
    /// Those that are not known to be off; empty also where nothing is known of the Dock. May read
    /// files, but waits for no other program.
    virtual std::vector<DockDisplay> ownDisplays(const ElementRef& item) = 0;
};

} // namespace lumbrix::platform
