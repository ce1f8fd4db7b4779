// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// An element of an X11 desktop. It contains only its identity; everything else is looked up when
// read.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <functional>

#include "platform/Accessibility.h"
#include "platform/linux/docks/DockItem.h"

namespace lumbrix::platform
{

class X11Element final : public AXElement
{
public:
    enum class Kind {
        SystemWide,
        Application, ///< by process id; the dock too
        Window,
        CloseButton, ///< of a window
        DockList,    ///< the list of the dock's items
        DockItem,
        SwitcherList,  ///< of the window manager's switcher
        SwitcherEntry, ///< of a window in the switcher, by its process id and its number; 0 for
                       ///< none
    };

    static ElementRef systemWide() { return make(Kind::SystemWide, 0); }
    static ElementRef application(std::int32_t pid)
    {
        return make(Kind::Application, static_cast<std::uint32_t>(pid));
    }
    static ElementRef window(xcb_window_t id) { return make(Kind::Window, id); }
    /// A window that has just been closed. It still reports the role of a window, so that the
    /// receiver of the notification knows what was closed.
    static ElementRef goneWindow(xcb_window_t id) { return make(Kind::Window, id, true); }
    static ElementRef closeButton(xcb_window_t id) { return make(Kind::CloseButton, id); }
    static ElementRef dockList() { return make(Kind::DockList, 0); }
    static ElementRef dockItem(DockItemId id) { return make(Kind::DockItem, id); }

    static ElementRef switcherList() { return make(Kind::SwitcherList, 0); }
    /// By the window too, as the switcher may go to another one of the same application.
    static ElementRef switcherEntry(std::int32_t pid, xcb_window_t window)
    {
        return make(Kind::SwitcherEntry,
                    std::uint64_t{window} << windowShift | static_cast<std::uint32_t>(pid));
    }

    /// Null if it is null or belongs to another adapter.
    static const X11Element* from(const ElementRef& element)
    {
        return dynamic_cast<const X11Element*>(element.get());
    }

    X11Element(Kind kind, std::uint64_t id, bool isGone) : m_kind(kind), m_id(id), m_isGone(isGone)
    {
    }

    bool isEqual(const AXElement& other) const override
    {
        const auto* element = dynamic_cast<const X11Element*>(&other);
        return element && element->m_kind == m_kind && element->m_id == m_id;
    }
    std::size_t hash() const override { return std::hash<std::uint64_t>()(m_id); }

    Kind kind() const { return m_kind; }
    bool isGone() const { return m_isGone; }
    /// Of an application or a switcher's entry.
    std::int32_t pid() const { return static_cast<std::int32_t>(m_id); }
    xcb_window_t entryWindow() const { return static_cast<xcb_window_t>(m_id >> windowShift); }
    xcb_window_t windowId() const { return static_cast<xcb_window_t>(m_id); }
    DockItemId dockItemId() const { return m_id; }

private:
    static ElementRef make(Kind kind, std::uint64_t id, bool isGone = false)
    {
        return std::make_shared<X11Element>(kind, id, isGone);
    }

    static constexpr int windowShift = 32; ///< in the id of a switcher's entry

    const Kind m_kind;
    const std::uint64_t m_id;
    const bool m_isGone;
};

} // namespace lumbrix::platform
