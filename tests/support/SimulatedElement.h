// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Accessibility.h"

namespace lumbrix::test
{

/// An element of the simulated desktop: what it is and which one. Every read makes new ones, so
/// that only their own equality can tell that two are the same.
struct SimulatedElement final : platform::AXElement {
    enum class Kind {
        SystemWide,
        Application,
        Window,
        CloseButton,
        Content, ///< the one child of a window
        DockList,
        DockItem,
        SwitcherList,
        SwitcherEntry,
    };

    SimulatedElement(Kind k, std::int32_t p, std::uint32_t i) : kind(k), pid(p), id(i) {}
    bool isEqual(const AXElement& other) const override
    {
        const auto* same = dynamic_cast<const SimulatedElement*>(&other);
        // A window that becomes another application's stays the same.
        return same && same->kind == kind && same->id == id &&
               (same->pid == pid || kind == Kind::Window);
    }
    std::size_t hash() const override { return id; }

    const Kind kind;
    const std::int32_t pid; ///< of the owner; 0 for the system-wide element
    const std::uint32_t id; ///< window number, Dock item or switcher entry
};

inline platform::ElementRef makeElement(SimulatedElement::Kind kind, std::int32_t pid,
                                        std::uint32_t id = 0)
{
    return std::make_shared<SimulatedElement>(kind, pid, id);
}

} // namespace lumbrix::test
