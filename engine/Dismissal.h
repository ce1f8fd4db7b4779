// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// When previews go away, and which clicks belong to them while the switcher holds the mouse.
#pragma once

#include <QtCore/QRectF>

#include <optional>

#include "engine/Corridor.h"
#include "engine/EngineContext.h"
#include "model/PreviewLayout.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{

/// Main thread.
class Dismissal
{
public:
    explicit Dismissal(const EngineContext& context) : m(context), m_corridor(context) {}

    /// The mouse has left a preview.
    void mouseExited();
    /// The mouse is on no item of the Dock any more.
    void dockSelectionEnded();
    /// From now on nothing keeps the row but the mouse.
    void letGo();
    /// To one that has no previews.
    void mouseExitedToOtherIcon();
    void mouseExitedToClosedApp() { mouseExitedToOtherIcon(); }
    void menuOpened();
    /// Ends the row at once, and whatever is hovered and still to come up. `why` is for the log,
    /// here and below.
    void endAtOnce(const char* why);

    // Removal: they differ in what happens to the panels and to the timers.
    /// Panels stay on screen until the next pass of the loop, so that a set built at once from the
    /// same panels replaces them without a flicker.
    void removeAllScreenViews(const char* why);
    void removeAllScreenViewsNOW(const char* why);
    void removeAllScreenViewsLeavingTimersAlone(const char* why);

    void removeAllScreenViewsWithCheck();
    void removeAllScreenViewsWithCheckDelayed();
    bool shouldInterceptClick(bool perform, bool isTabExit);
    void closeAllWindows();

    /// Also brings the previews' hover state in step with the mouse, because their own tracking
    /// sees nothing while the switcher or the Dock holds the mouse.
    bool checkIfPreviewsAreHovered(bool includeDockItem);

    /// Exit checks still to skip.
    void setDelayExit(int checks) { m_delayExit = checks; }

private:
    void tellEnd(const char* why) const;
    void rowEnded();
    /// The frame of a preview and the way to it from the Dock, where the icon is now; empty where
    /// the side is not known.
    QRectF bridgedToDock(const QRectF& frame, const QRectF& icon,
                         std::optional<platform::DockEdge> edge) const;

    const EngineContext m;
    const Corridor m_corridor;
    int m_delayExit = 0;
};

} // namespace lumbrix
