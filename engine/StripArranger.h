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
    /// Works on the previews that the row has at the time. All of it outlives the arranger.
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

    /// Whether the item is somewhere, beside a Dock at an edge that previews can be placed at.
    static bool hasPlaceBeside(platform::DockPreferences& preferences, const SWElementPtr& item);

    /// Whether the item has a place, some of it on a screen.
    bool isOnScreen(const SWElementPtr& item) const;
    /// Whether the strip that was placed last would be placed there again.
    bool isArrangedBeside(const SWElementPtr& item) const;

    /// Places the previews shown as one strip beside the item on the side of the Dock that has it,
    /// on the item's screen; nothing is placed where no edge is known. A null item reads as the
    /// zero rectangle. Panels of this program move at once, so `animate` only tells what was asked
    /// for.
    void arrangeWindows(const SWElementPtr& item, bool animate);
    void arrangeWindowsBottom(const SWElementPtr& item, bool animate);
    void arrangeWindowsTop(const SWElementPtr& item, bool animate);
    void arrangeWindowsLeft(const SWElementPtr& item, bool animate);
    void arrangeWindowsRight(const SWElementPtr& item, bool animate);

    /// Where something of this size lies beside the row: on the icon's line, which other previews
    /// in the row's place leave where it is, and away from the Dock; screen coordinates. Empty
    /// before the first row.
    QRectF placeOfMore(QSizeF size) const;

    /// Places one sample preview beside the Dock's first item and brings it to the front.
    void arrangeWindow(ScreenyView& preview);

private:
    void arrangeStrip(platform::DockEdge edge, const SWElementPtr& item);
    /// Of a row, marks the preview of the one window that the item stands for, if it does.
    void markOwnWindow(const SWElementPtr& item);
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
