// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Applies the preview layout to panels, once the Dock has settled.
#pragma once

#include <QtCore/QRectF>

#include <optional>
#include <vector>

#include "model/PreviewLayout.h"
#include "platform/Desktop.h"
#include "platform/DockPreferences.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{

struct EngineSettings;
class HelpBubble;

/// Main thread.
class StripArranger
{
public:
    /// `previews` is the row's list, read on each call. All arguments must outlive the arranger.
    StripArranger(const platform::Desktop& ports, const EngineSettings& settings,
                  const std::vector<ScreenyViewPtr>& previews, HelpBubble& bubble)
        : m_ports(ports), m_settings(settings), m_previews(previews), m_bubble(bubble)
    {
    }

    // The settings of the Dock that has the item, or for null of the first one, read afresh each
    // time.
    /// Null where that Dock names no edge that previews can be placed at.
    static std::optional<platform::DockEdge>
    getDockOrientation(platform::DockPreferences& preferences, const SWElementPtr& item);
    static bool isDockMagnificationEnabled(platform::DockPreferences& preferences,
                                           const SWElementPtr& item);
    static bool isDockAutoHidingEnabled(platform::DockPreferences& preferences,
                                        const SWElementPtr& item);

    /// Whether the item has a position, and its Dock is at an edge at which previews can be placed.
    static bool hasPlaceBeside(platform::DockPreferences& preferences, const SWElementPtr& item);

    /// Whether the item has a position that is at least partly on a screen.
    bool isOnScreen(const SWElementPtr& item) const;
    /// Whether the strip placed last is already where it would be placed beside this item now.
    bool isArrangedBeside(const SWElementPtr& item) const;

    /// Places the previews as one strip beside the item, on its screen, at the side given by the
    /// Dock that has it; does nothing if no edge is known. A null item counts as the zero
    /// rectangle. Panels always move at once, so `animate` has no effect.
    void arrangeWindows(const SWElementPtr& item, bool animate);
    void arrangeWindowsBottom(const SWElementPtr& item, bool animate);
    void arrangeWindowsTop(const SWElementPtr& item, bool animate);
    void arrangeWindowsLeft(const SWElementPtr& item, bool animate);
    void arrangeWindowsRight(const SWElementPtr& item, bool animate);

    /// Of a row, marks the preview of the one window that the item stands for, if it does.
    void markOwnWindow(const SWElementPtr& item);

    /// Where something of this size lies beside the row: on the icon's line, which other previews
    /// in the row's place leave where it is, and away from the Dock; screen coordinates. Empty
    /// before the first row.
    QRectF placeOfMore(QSizeF size) const;

    /// Places one sample preview beside the Dock's first item and brings it to the front.
    void arrangeWindow(ScreenyView& preview);

private:
    void arrangeStrip(platform::DockEdge edge, const SWElementPtr& item);
    void waitUntilSettled(const SWElementPtr& item) const;
    PreviewLayout::Input layoutInput(const QRectF& icon) const;

    const platform::Desktop& m_ports;
    const EngineSettings& m_settings;
    const std::vector<ScreenyViewPtr>& m_previews;
    HelpBubble& m_bubble;
    std::optional<platform::DockEdge> m_edge; ///< of the strip that was placed last
    QRectF m_icon;
};

} // namespace lumbrix
