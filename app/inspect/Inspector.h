// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Looks at what is under the pointer with the eyes of the engine, without being one: an inventory
// of its own under the user's settings, and no previews.
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

/// Main thread. Changes nothing on the desktop and in the settings. At most one at a time, and none
/// beside an engine in the same program.
class Inspector final : private InventoryObserver
{
public:
    Inspector();
    ~Inspector() override;

    /// Takes what is under the pointer now, and has its windows pictured. An application that does
    /// not answer to that shows itself within a moment, which the caller grants it.
    void aim();
    /// Looks at what was aimed at.
    Inspection inspect();

private:
    using Application = std::optional<platform::RunningApplication>;

    void windowsChanged() override {}
    bool isShowingPreviews() const override { return false; }

    bool isDockItem(const platform::ElementRef& element) const;
    /// The application's icon in the Dock; null when it has none.
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
    platform::ElementRef m_element; ///< under the pointer; null when there is none
    SWElementPtr m_window;          ///< the window it is or belongs to; null when there is none
    platform::ElementRef m_item;    ///< the Dock item; null when there is none
    bool m_pointsAtItem = false;
    Application m_application;
};

} // namespace lumbrix
