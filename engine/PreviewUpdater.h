// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Keeps the previews of the hovered item in step with its windows.
#pragma once

#include <vector>

#include "engine/Dismissal.h"
#include "engine/EngineContext.h"
#include "model/SWElement.h"
#include "platform/RunLoop.h"
#include "platform/Workspace.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{

/// Main thread.
class PreviewUpdater
{
public:
    static constexpr platform::Seconds updateInterval = 0.5;

    PreviewUpdater(const EngineContext& context, Dismissal& dismissal)
        : m(context), m_dismissal(dismissal)
    {
    }

    void armUpdateTimer(platform::Seconds interval, const SWElementPtr& element);
    /// The pass that the armed timer would make next; nothing when none is armed.
    void updateNow();
    /// Has the row that is shown follow the settings, which have changed.
    void settingsDidChange();
    /// Has the row follow its icon, which may be elsewhere now.
    void dockItemsDidChange();
    /// Has the row go when its icon is on no screen any more. What is where has changed for all
    /// that is shown, also where nothing moved.
    void screensDidChange();
    /// Has the row show the windows that it had no room for.
    void showMore();
    /// One pass of the update timer for the hovered item.
    void updateWindows(const SWElementPtr& element);

private:
    /// What one pass changed, or that it is over.
    struct Pass {
        bool added = false;
        bool removed = false;
        bool isOver = false; ///< nothing is laid out any more
    };

    bool updateMinimizedPreview(const SWElementPtr& element);
    void refreshShown(Pass& pass);
    void refreshPreview(ScreenyView& preview);
    void followApplication(const SWElementPtr& element, Pass& pass);
    void addMissing(const std::vector<SWElementPtr>& windows,
                    const platform::RunningApplication& application, const SWElementPtr& element,
                    Pass& pass);
    void layOutAgain(const SWElementPtr& element, const Pass& pass);
    /// The Dock item that a row is shown beside; null where none is, or it is the switcher's.
    SWElementPtr itemOfRow() const;

    const EngineContext m;
    Dismissal& m_dismissal;
};

} // namespace lumbrix
