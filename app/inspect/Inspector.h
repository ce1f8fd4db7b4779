// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Applies the engine's rules to what is under the pointer, without an engine: it has an inventory
// of its own under the user's settings, and shows no previews.
#pragma once

#include <optional>

#include "app/inspect/Inspection.h"
#include "engine/FilterTable.h"
#include "model/UIElementUtilities.h"
#include "model/WindowInventory.h"
#include "platform/Desktop.h"
#include "platform/Workspace.h"

namespace lumbrix
{

/// Main thread. Changes neither the desktop nor the settings. At most one at a time, and not in a
/// process that has an engine.
class Inspector final : private InventoryObserver
{
public:
    Inspector();
    ~Inspector() override;

    /// Records what is under the pointer now, and captures its windows. The caller must then wait a
    /// moment before it calls inspect(): that is how an application that does not answer is found.
    void aim();
    /// Inspects what aim() has recorded.
    Inspection inspect();

private:
    using Application = std::optional<platform::RunningApplication>;

    void windowsChanged() override {}
    bool isShowingPreviews() const override { return false; }

    bool isDockItem(const platform::ElementRef& element) const;
    /// The application's Dock item; null when it has none.
    platform::ElementRef itemOf(const platform::RunningApplication& application) const;
    InspectedDock inspectDock() const;
    InspectedItem inspectItem() const;
    void inspectApplication(Inspection& inspection);
    InspectedWindow inspectWindow(const SWElementPtr& found, bool isScanned,
                                  const platform::WindowList& list);
    HoverVerdict judgeHover(const Inspection& inspection) const;

    const platform::Desktop& m_ports = platform::desktop();
    const UIElementUtilities m_utilities{m_ports};
    bool m_hasRun = false; ///< Lumbrix has been started before
    bool m_showsCalendars = false;
    EngineSettings m_settings;
    FilterTable m_filters;
    WindowInventory m_inventory{m_ports, m_settings, *this};

    QPointF m_pointer;
    platform::ElementRef m_element; ///< under the pointer; null if there is none
    SWElementPtr m_window;          ///< the window that it is or belongs to; null if there is none
    platform::ElementRef m_item;    ///< the Dock item; null if there is none
    bool m_pointsAtItem = false;
    Application m_application;
};

} // namespace lumbrix
