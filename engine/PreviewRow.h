// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The previews on screen: their order, positions and pictures.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

#include "engine/CaptureQueue.h"
#include "engine/Companions.h"
#include "engine/HoveredItem.h"
#include "engine/PictureFeed.h"
#include "engine/PictureLoader.h"
#include "engine/PreviewCache.h"
#include "engine/RowSelection.h"
#include "engine/StripArranger.h"
#include "model/EngineSettings.h"
#include "model/SWElement.h"
#include "platform/Desktop.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "preview/MoreEntry.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{

/// Main thread, except isShowing().
class PreviewRow
{
public:
    using Application = std::optional<platform::RunningApplication>;

    /// All arguments must outlive the row.
    PreviewRow(const platform::Desktop& ports, PreviewHost& host, const EngineSettings& settings,
               const Companions& companions, const HoveredItem& hovered);

    /// In the order of the row.
    const std::vector<ScreenyViewPtr>& previews() const { return m_previews; }
    bool isEmpty() const { return m_previews.empty(); }
    bool isShowing() const { return m_isShowing; } ///< any thread
    /// −1 if it is not in the row.
    int indexOf(const ScreenyView& preview) const;
    /// Whether the row belongs to the application and was made for the switcher (`byTab`) or not.
    bool belongsTo(const Application& application, bool byTab) const;

    /// Whether any of its windows has a Space, and that is not the current one.
    bool isOnOtherSpaces() const;

    void append(const ScreenyViewPtr& preview);
    /// Creates a preview of a window, fills and appends it; null when none can be made.
    /// `application` is the hovered item's.
    ScreenyViewPtr append(const SWElementPtr& window, const Application& application, bool byTab);
    /// The same for several, as long as there is room: a new row, from the first of them on.
    void append(const std::vector<SWElementPtr>& windows, const Application& application,
                bool byTab);
    /// Of all windows that the row stands for, those that it has room for.
    std::vector<SWElementPtr> present(const std::vector<SWElementPtr>& windows);
    /// From now on the row has room for those that come after the present ones; after the last of
    /// them, for the first ones again.
    void turnPage() { m_firstWindow += m_presentWindows; }
    /// How many windows the row stands for, and the place of its first one among them.
    std::size_t allWindows() const { return m_allWindows; }
    std::size_t firstWindow() const { return m_firstWindow; }
    /// Tells how many windows it has no room for; nothing where it has room for all.
    void updateMore();
    /// Those that are left of it; the others were dismissed. Their pictures follow the windows and
    /// the settings.
    void setPreviews(std::vector<ScreenyViewPtr> previews);

    /// Shows previews that are new or have moved.
    void bringOut();
    /// Empties the row. Panels stay on screen until the next pass of the loop, so that a new row
    /// made of the same panels replaces them without flicker.
    void takeAwayWithTheNextPass();
    /// Empties the row and hides the panels at once.
    void takeAway();

    PreviewCache& cache() { return m_cache; }
    const PreviewCache& cache() const { return m_cache; }
    StripArranger& arranger() { return m_arranger; }
    PictureLoader& pictures() { return m_pictures; }
    RowSelection& selection() { return m_selection; }
    const RowSelection& selection() const { return m_selection; }
    MoreEntry& more() { return m_more; }
    const MoreEntry& more() const { return m_more; }

private:
    std::vector<ScreenyViewPtr> take();
    /// Has each title show where it differs from the others.
    void tellTitlesApart() const;

    const platform::Desktop& m_ports;
    const Companions& m_companions;
    const HoveredItem& m_hovered;
    PreviewCache m_cache;
    std::vector<ScreenyViewPtr> m_previews;
    const std::shared_ptr<CaptureQueue> m_queue;
    PictureFeed m_feed;
    std::atomic<bool> m_isShowing{false};
    std::size_t m_firstWindow = 0; ///< of the row, in all that it stands for
    std::size_t m_presentWindows = 0;
    std::size_t m_allWindows = 0;
    StripArranger m_arranger;
    PictureLoader m_pictures;
    RowSelection m_selection;
    MoreEntry m_more;
    platform::TimerPtr m_orderOutTimer;
};

} // namespace lumbrix
