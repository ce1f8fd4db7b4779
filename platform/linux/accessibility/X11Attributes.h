// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The readable attributes of each kind of element of an X11 desktop.
#pragma once

#include "platform/linux/accessibility/X11Element.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/docks/DockModel.h"
#include "platform/linux/switcher/SwitcherModel.h"
#include "platform/linux/x11/PointSpace.h"

namespace lumbrix::platform
{

/// Any thread.
class X11Attributes
{
public:
    struct Parts {
        x11::WindowTracker& tracker;
        const x11::PointSpace& space;
        ApplicationRegistry& registry;
        DockModel& docks;
        SwitcherModel& switcher;
    };
    /// One row of a kind's table. The name is the accessibility interface's.
    template <class Subject> struct Attribute {
        const char16_t* name;
        AXResult (*read)(const X11Attributes& self, const Subject& subject);
        bool isSettable = false;
    };
    /// The data that an element's attributes are read from.
    struct Nothing {
    };

    explicit X11Attributes(const Parts& parts) : m(parts) {}

    AXResult read(const ElementRef& element, const QString& name) const;
    /// The attributes that read() supports, with or without a value.
    AXNames names(const ElementRef& element) const;
    AXResult isSettable(const ElementRef& element, const QString& name) const;

    const Parts& parts() const { return m; }
    /// The process that owns the active window; 0 if no application's window is active.
    std::int32_t activePid() const;

private:
    /// Looks up the element's table and the data for its rows; or returns the reason why nothing
    /// can be read.
    template <class Use> AXError visit(const ElementRef& element, Use use) const;

    template <class Use> AXError visitSwitcher(const X11Element& element, Use use) const;

    const Parts m;
};

} // namespace lumbrix::platform
