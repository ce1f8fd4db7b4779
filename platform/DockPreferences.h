// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The preferences of the Dock, or of that one of several docks which has an item; read only.
#pragma once

#include <QtCore/QString>

#include <optional>
#include <vector>

#include "platform/Accessibility.h"
#include "platform/DockEdge.h"

namespace lumbrix::platform
{

/// A tooltip or preview that a dock itself shows for the icon under the pointer.
struct DockDisplay {
    enum class Kind { Tooltip, Preview };
    Kind kind = Kind::Tooltip;
    bool isKnownOn = false; ///< otherwise it may be off
    QString setting;        ///< how to turn it off, for the user; empty if that is not possible
};

/// Main thread. Values of the Dock that has the item; for a null item, of the first Dock that has
/// any items. Values are as that Dock stores them; null if it does not report them.
class DockPreferences
{
public:
    virtual ~DockPreferences() = default;
    /// Makes later reads return the Dock's current values.
    virtual void synchronize() = 0;
    /// The edge of the screen that it is at, or nearest to; the bottom where it does not say, null
    /// where it names what is no edge.
    virtual std::optional<DockEdge> orientation(const ElementRef& item) = 0;
    /// 1 = icons grow under the pointer.
    virtual std::optional<int> magnification(const ElementRef& item) = 0;
    /// 1 = the Dock hides.
    virtual std::optional<int> autohide(const ElementRef& item) = 0;
    /// Whether the reported positions of the Dock's items are already the final ones while it grows
    /// or slides. Otherwise the caller must wait until they have settled.
    virtual bool tellsFinalPlaces() = 0;
    /// The displays that are not known to be off; empty also for an unknown Dock. May read files,
    /// but waits for no other program.
    virtual std::vector<DockDisplay> ownDisplays(const ElementRef& item) = 0;
    /// Whether the Dock itself writes on the item how many windows it stands for. As ownDisplays().
    virtual bool countsWindows(const ElementRef& item) = 0;
};

} // namespace lumbrix::platform
